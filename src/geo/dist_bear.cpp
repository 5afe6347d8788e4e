#include "geo/dist_bear.h"

#include <algorithm>
#include <cmath>

#include "geo/trigonometry.h"

namespace {

constexpr double kPi = 3.141592653589;  // kDegreesPerRadian is 180 / kPi
constexpr double kShareOfCell = 0.7;    // a position may be off by this part of its cell
constexpr double kOneMetre = 0.001;     // km

}  // namespace

double ACS(double x) {
  if (x == 0) return kPi / 2;
  return Arctangent(std::sqrt(1 - x * x) / x) + (x < 0 ? kPi : 0);
}

HomeStation HomeStationAt(double lat, double lon) {
  const double p1 = lat / kDegreesPerRadian;
  return {lat, lon, Sine(p1), Cosine(p1)};
}

DistanceAndBearings DistanceAndBearingsOf(const HomeStation& home, double lat, double lon) {
  const double p2 = lat / kDegreesPerRadian;
  const double sinLat = Sine(p2);
  const double cosLat = Cosine(p2);
  const double c =
      home.sinLat * sinLat + cosLat * home.cosLat * Cosine((home.lon - lon) / kDegreesPerRadian);
  const double arc = std::fabs(c) < 1 ? ACS(c) : 0;
  DistanceAndBearings result;
  result.distance = arc * kEarthRadius;
  if (result.distance < kOneMetre) return result;
  const double sinArc = Sine(arc);
  const double cosArc = Cosine(arc);
  // Rounding can push a cosine beyond -1 or 1.
  const double b1 = std::clamp((sinLat - cosArc * home.sinLat) / (sinArc * home.cosLat), -1.0, 1.0);
  const double b2 = std::clamp((home.sinLat - cosArc * sinLat) / (sinArc * cosLat), -1.0, 1.0);
  result.bearing = ACS(b1) * kDegreesPerRadian;
  result.backbearing = ACS(b2) * kDegreesPerRadian;
  if (lon < home.lon) result.bearing = 360 - result.bearing;
  if (home.lon < lon) result.backbearing = 360 - result.backbearing;
  return result;
}

void DistBear(Workspace& w) {
  const auto [distance, bearing, backbearing] =
      DistanceAndBearingsOf(HomeStationAt(w.BaseLat, w.BaseLong), w.Lat, w.Lon);
  w.Dist = distance;
  w.Bearing = bearing;
  w.Backbearing = backbearing;
  w.DistUncert = 0;
  w.BearUncert = 0;
  if (distance < kOneMetre) return;
  w.DistUncert = (w.Baseresolution + w.Resolution) * kShareOfCell;
  w.BearUncert = (Arctangent(kShareOfCell * w.Resolution / distance) +
                  Arctangent(kShareOfCell * w.Baseresolution / distance)) *
                 kDegreesPerRadian;
}
