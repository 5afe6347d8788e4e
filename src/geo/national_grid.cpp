#include "geo/national_grid.h"

#include <cmath>

#include "geo/datum.h"
#include "geo/trigonometry.h"
#include "workspace/values/rounding.h"

namespace {

constexpr double kAF0 = 6375020.480988971;  // semi-major and semi-minor axis of Airy 1830, m, times
constexpr double kBF0 = 6353722.490487913;  // the scale 0.9996012717 of the central meridian
constexpr double kESquared = (kAF0 * kAF0 - kBF0 * kBF0) / (kAF0 * kAF0);  // eccentricity, squared

// The true origin, degrees, and its easting and northing, m.
constexpr double kOriginLat = 49;
constexpr double kOriginLon = -2;
constexpr double kFalseEasting = 400000;
constexpr double kFalseNorthing = -100000;

// Radii of curvature at a latitude, m.
struct Curvature {
  double nu;          // in the prime vertical
  double rho;         // in the meridian
  double etaSquared;  // nu / rho - 1
};

Curvature CurvatureAt(double phi) {
  const double sinPhi = Sine(phi);
  const double factor = 1 - kESquared * (sinPhi * sinPhi);
  const double nu = kAF0 / std::sqrt(factor);
  const double rho = nu * (1 - kESquared) / factor;
  return {nu, rho, nu / rho - 1};
}

// Length of the central meridian, m, from the true origin to latitude phi, radians.
double MeridionalArc(double phi) {
  constexpr double n = (kAF0 - kBF0) / (kAF0 + kBF0);  // third flattening
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

// Latitude, radians, of the point of the central meridian with this northing, m. A real reference
// needs four passes; the limit of 50 ends the loop for texts such as SU12346E12, whose digits read
// as a number far beyond the grid.
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

// The names of the coefficients are those of the published series.
void WGS84ToGrid(double Lat, double Lon, double& easting, double& northing) {
  double lat = 0;
  double lon = 0;
  WGS84ToAiry(Lat, Lon, lat, lon);
  const double phi = lat / kDegreesPerRadian;
  const double p = (lon - kOriginLon) / kDegreesPerRadian;
  const auto [nu, rho, eta2] = CurvatureAt(phi);
  const double s = Sine(phi);
  const double c = Cosine(phi);
  const double c3 = c * c * c;
  const double c5 = c3 * c * c;
  const double t = s / c;
  const double t2 = t * t;
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

void GridToWGS84(double easting, double northing, double& Lat, double& Lon) {
  const double phi = FootLatitude(northing);
  const auto [nu, rho, eta2] = CurvatureAt(phi);
  const double nu2 = nu * nu;
  const double nu3 = nu2 * nu;
  const double nu5 = nu3 * nu2;
  const double nu7 = nu5 * nu2;
  const double c = Cosine(phi);
  const double t = Sine(phi) / c;
  const double t2 = t * t;
  const double t4 = t2 * t2;
  const double y = easting - kFalseEasting;
  const double y2 = y * y;

  const double VII = t / (2 * rho * nu);
  const double VIII = t / (24 * rho * nu3) * (5 + 3 * t2 + eta2 - 9 * t2 * eta2);
  const double IX = t / (720 * rho * nu5) * (61 + 90 * t2 + 45 * t4);
  const double lat = (phi - y2 * VII + y2 * y2 * VIII - y2 * y2 * y2 * IX) * kDegreesPerRadian;

  const double X = 1 / (c * nu);
  const double XI = 1 / (6 * c * nu3) * (nu / rho + 2 * t2);
  const double XII = 1 / (120 * c * nu5) * (5 + 28 * t2 + 24 * t4);
  const double XIIA = 1 / (5040 * c * nu7) * (61 + 662 * t2 + 1320 * t4 + 720 * t4 * t2);
  const double lon = kOriginLon + kDegreesPerRadian * (y * X - y2 * y * XI + y2 * y2 * y * XII -
                                                       y2 * y2 * y2 * y * XIIA);
  AiryToWGS84(Finite(lat), Finite(lon), Lat, Lon);
}
