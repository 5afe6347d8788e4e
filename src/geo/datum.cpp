#include "geo/datum.h"

#include <cmath>

#include "geo/trigonometry.h"

namespace {

struct Ellipsoid {
  double a;         // semi-major axis, m
  double eSquared;  // square of the eccentricity, as published; not derived from the axes
};

constexpr Ellipsoid kAiry{6377563.396, 0.0066705397616};
constexpr Ellipsoid kWGS84{6378137.0, 0.0066943800355};

constexpr double RadiansOf(double arcSeconds) {
  return arcSeconds / kDegreesPerRadian / 3600;
}

struct Helmert {
  double tx, ty, tz;  // translation, m
  double s;           // change of scale: lengths are multiplied by 1 + s
  double rx, ry, rz;  // rotation, radians
};

constexpr Helmert Reversed(const Helmert& h) {
  return {-h.tx, -h.ty, -h.tz, -h.s, -h.rx, -h.ry, -h.rz};
}

constexpr Helmert kAiryToWGS84{446.448,           -125.157,         542.06,           -2.04894e-05,
                               RadiansOf(0.1502), RadiansOf(0.247), RadiansOf(0.8421)};
constexpr Helmert kWGS84ToAiry = Reversed(kAiryToWGS84);

// The iteration has converged when the latitude changes by at most 1e-08 radians (6 cm). Every
// real latitude needs two passes; the limit of twice as many ends the loop for all other numbers.
constexpr double kConverged = 1e-08;
constexpr int kMostPasses = 4;

// Radius of curvature in the prime vertical, m.
double Nu(const Ellipsoid& ellipsoid, double sinPhi) {
  return ellipsoid.a / std::sqrt(1 - ellipsoid.eSquared * sinPhi * sinPhi);
}

// Converts degrees to cartesian coordinates, applies the Helmert transformation and converts back.
void Transform(const Ellipsoid& from, const Ellipsoid& to, const Helmert& h, double Lat1,
               double Long1, double& Lat2, double& Long2) {
  const double phi = Lat1 / kDegreesPerRadian;
  const double lambda = Long1 / kDegreesPerRadian;
  const double nu = Nu(from, Sine(phi));
  const double x = nu * Cosine(phi) * Cosine(lambda);
  const double y = nu * Cosine(phi) * Sine(lambda);
  const double z = (1 - from.eSquared) * nu * Sine(phi);

  const double x2 = h.tx + (1 + h.s) * x - h.rz * y + h.ry * z;
  const double y2 = h.ty + h.rz * x + (1 + h.s) * y - h.rx * z;
  const double z2 = h.tz - h.ry * x + h.rx * y + (1 + h.s) * z;

  const double p = std::sqrt(x2 * x2 + y2 * y2);
  double phi2 = ATAN2(p * (1 - to.eSquared), z2);
  for (int pass = 0; pass < kMostPasses; ++pass) {
    const double previous = phi2;
    const double sinPhi = Sine(previous);
    phi2 = ATAN2(p, z2 + to.eSquared * Nu(to, sinPhi) * sinPhi);
    if (!(std::fabs(previous - phi2) > kConverged)) break;
  }
  Lat2 = phi2 * kDegreesPerRadian;
  Long2 = ATAN2(x2, y2) * kDegreesPerRadian;
}

}  // namespace

double ATAN2(double x, double y) {
  const double r = std::sqrt(x * x + y * y);
  if (x + r > 1e-08) return 2 * Arctangent(y / (x + r));
  return 0;
}

void AiryToWGS84(double Lat1, double Long1, double& Lat2, double& Long2) {
  Transform(kAiry, kWGS84, kAiryToWGS84, Lat1, Long1, Lat2, Long2);
}

void WGS84ToAiry(double Lat1, double Long1, double& Lat2, double& Long2) {
  Transform(kWGS84, kAiry, kWGS84ToAiry, Lat1, Long1, Lat2, Long2);
}
