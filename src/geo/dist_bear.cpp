#include "geo/dist_bear.h"

#include <algorithm>
#include <cmath>

#include "geo/angles.h"
#include "geo/trigonometry.h"
#include "workspace/values/rounding.h"

namespace {

constexpr double kPi = 3.141592653589;  // the pi that kDegreesPerRadian is made of
constexpr double kShareOfCell = 0.7;    // of its cell, that a position may be off
constexpr double kOneMetre = 0.001;     // km

}  // namespace

double ACS(double x) {
  const double quadrant = (1 - SignOf(x)) * kPi / 2;
  if (x == 0) return quadrant;
  return Arctangent(std::sqrt(1 - x * x) / x) + quadrant;
}

void DistBear(Workspace& w) {
  const double p1 = w.BaseLat / kDegreesPerRadian;
  const double p2 = w.Lat / kDegreesPerRadian;
  const double c = Sine(p1) * Sine(p2) +
                   Cosine(p2) * Cosine(p1) * Cosine((w.BaseLong - w.Lon) / kDegreesPerRadian);
  const double arc = std::fabs(c) < 1 ? ACS(c) : 0;
  w.Dist = arc * kEarthRadius;
  if (w.Dist < kOneMetre) {
    w.Bearing = 0;
    w.Backbearing = 0;
    w.DistUncert = 0;
    w.BearUncert = 0;
    return;
  }
  // Rounding pushes a cosine beyond -1 or 1.
  const double b1 =
      std::clamp((Sine(p2) - Cosine(arc) * Sine(p1)) / (Sine(arc) * Cosine(p1)), -1.0, 1.0);
  const double b2 =
      std::clamp((Sine(p1) - Cosine(arc) * Sine(p2)) / (Sine(arc) * Cosine(p2)), -1.0, 1.0);
  w.Bearing = ACS(b1) * kDegreesPerRadian;
  w.Backbearing = ACS(b2) * kDegreesPerRadian;
  if (w.Lon < w.BaseLong) w.Bearing = 360 - w.Bearing;
  if (w.BaseLong < w.Lon) w.Backbearing = 360 - w.Backbearing;

  w.DistUncert = (w.Baseresolution + w.Resolution) * kShareOfCell;
  w.BearUncert = (Arctangent(kShareOfCell * w.Resolution / w.Dist) +
                  Arctangent(kShareOfCell * w.Baseresolution / w.Dist)) *
                 kDegreesPerRadian;
}
