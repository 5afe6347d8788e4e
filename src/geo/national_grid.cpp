#include "geo/national_grid.h"

#include <cmath>

#include "geo/angles.h"
#include "geo/trigonometry.h"

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

Curvature CurvatureAt(double phi) {
  const double sinPhi = Sine(phi);
  const double flattening = 1 - kGridESquared * (sinPhi * sinPhi);
  Curvature at{};
  at.nu = kAF0 / std::sqrt(flattening);
  at.rho = at.nu * (1 - kGridESquared) / flattening;
  at.etaSquared = at.nu / at.rho - 1;
  return at;
}

void ShowEastNorth(Workspace& w, double easting, double northing) {
  w.Tarnwick.EastNorth.text =
      "E: " + FormatPicture(easting, "######") + " , N: " + FormatPicture(northing, "######");
}
