#include "geo/transverse_mercator.h"

#include <cmath>

#include "geo/angles.h"
#include "geo/trigonometry.h"

namespace {

// Radii of curvature at a latitude, m.
struct Curvature {
  double nu;          // in the prime vertical
  double rho;         // in the meridian
  double etaSquared;  // nu / rho - 1
};

Curvature CurvatureAt(double phi) {
  const double sinPhi = Sine(phi);
  const double flattening = 1 - kGridESquared * (sinPhi * sinPhi);
  Curvature at{};
  at.nu = kAF0 / std::sqrt(flattening);
  at.rho = at.nu * (1 - kGridESquared) / flattening;
  at.etaSquared = at.nu / at.rho - 1;
  return at;
}

// Latitude, radians, of the foot of the perpendicular to the central meridian. Four passes settle
// any reference; the bound is for texts whose digits read as a number beyond all maps.
double FootLatitude(double northing) {
  const double arc = northing - kFalseNorthing;
  double phi = arc / kAF0 + kOriginLat / kDegreesPerRadian;
  for (int pass = 0; pass < 50; ++pass) {
    const double gap = arc - MeridionalArc(phi);
    phi = phi + gap / kAF0;
    if (std::fabs(gap) < 0.001) break;
  }
  return phi;
}

}  // namespace

double MeridionalArc(double phi) {
  constexpr double n = kGridN;
  constexpr double n2 = n * n;
  constexpr double n3 = n * n * n;
  constexpr double phi0 = kOriginLat / kDegreesPerRadian;
  const double difference = phi - phi0;
  const double sum = phi + phi0;
  const double a = (1 + n + 5.0 / 4 * n2 + 5.0 / 4 * n3) * difference;
  const double b = (3 * n + 3 * n2 + 21.0 / 8 * n3) * Sine(difference) * Cosine(sum);
  const double c = (15.0 / 8 * n2 + 15.0 / 8 * n3) * Sine(2 * difference) * Cosine(2 * sum);
  const double f = 35.0 / 24 * n3 * Sine(3 * difference) * Cosine(3 * sum);
  return kBF0 * (a - b + c - f);
}

// The names below are those of the published series.
void ProjectToGrid(double lat, double lon, double& easting, double& northing) {
  const double phi = lat / kDegreesPerRadian;
  const double p = (lon - kOriginLon) / kDegreesPerRadian;
  const auto [nu, rho, eta2] = CurvatureAt(phi);
  const double s = Sine(phi);
  const double c = Cosine(phi);
  const double c3 = c * c * c;
  const double c5 = c3 * c * c;
  const double t2 = Tangent(phi) * Tangent(phi);
  const double t4 = t2 * t2;
  const double p2 = p * p;

  const double I = MeridionalArc(phi) + kFalseNorthing;
  const double II = nu / 2 * s * c;
  const double III = nu / 24 * s * c3 * (5 - t2 + 9 * eta2);
  const double IIIA = nu / 720 * s * c5 * (61 - 58 * t2 + t4);
  northing = I + p2 * II + p2 * p2 * III + p2 * p2 * p2 * IIIA;

  const double IV = nu * c;
  const double V = nu / 6 * c3 * (nu / rho - t2);
  const double VI = nu / 120 * c5 * (5 - 18 * t2 + t4 + 14 * eta2 - 58 * t2 * eta2);
  easting = kFalseEasting + p * IV + p2 * p * V + p2 * p2 * p * VI;
}

void UnprojectFromGrid(double easting, double northing, double& lat, double& lon) {
  const double phi = FootLatitude(northing);
  const auto [nu, rho, eta2] = CurvatureAt(phi);
  const double nu2 = nu * nu;
  const double nu3 = nu2 * nu;
  const double nu5 = nu3 * nu2;
  const double nu7 = nu5 * nu2;
  const double t = Tangent(phi);
  const double t2 = t * t;
  const double t4 = t2 * t2;
  const double c = Cosine(phi);
  const double y = easting - kFalseEasting;
  const double y2 = y * y;

  const double VII = t / (2 * rho * nu);
  const double VIII = t / (24 * rho * nu3) * (5 + 3 * t2 + eta2 - 9 * t2 * eta2);
  const double IX = t / (720 * rho * nu5) * (61 + 90 * t2 + 45 * t4);
  lat = (phi - y2 * VII + y2 * y2 * VIII - y2 * y2 * y2 * IX) * kDegreesPerRadian;

  const double X = 1 / (c * nu);
  const double XI = 1 / (6 * c * nu3) * (nu / rho + 2 * t2);
  const double XII = 1 / (120 * c * nu5) * (5 + 28 * t2 + 24 * t4);
  const double XIIA = 1 / (5040 * c * nu7) * (61 + 662 * t2 + 1320 * t4 + 720 * t4 * t2);
  lon = kOriginLon +
        kDegreesPerRadian * (y * X - y2 * y * XI + y2 * y2 * y * XII - y2 * y2 * y2 * y * XIIA);
}
