#include "sites/listing/approximate_place.h"

#include <array>
#include <cmath>
#include <numbers>

#include "geo/national_grid.h"
#include "geo/trigonometry.h"

namespace {

// What the polynomials supply, by index: the place in the other form, the cosine of its arc from
// the home station, the sine of its latitude, and the product of its cosine with the sine of the
// difference in longitude.
enum : std::size_t { kX, kY, kCosArc, kSinLat, kCosLatSinDeltaLon };

using Four = std::array<double, 4>;

// Returns the angles, 0 to pi, of four points whose y is not negative, with errors of 5e-10 at
// most; NaN at the origin. There are no branches, so that the compiler computes two angles at once.
Four AnglesOf(const Four& y, const Four& x) {
  constexpr double kEighth = std::numbers::pi / 4;
  // atan(t) / t in powers of t^2, to 3e-10 for |t| <= 1.
  constexpr double c[] = {0.9999999995535376,     -0.33333322488911593, 0.19999558100363982,
                          -0.14278576024807985,   0.1105077127584966,   -0.08785043282362845,
                          0.06685281517877424,    -0.04392841073326746, 0.02191294586544839,
                          -0.0070306694704242115, 0.0010576074380572419};
  Four angles;
  for (std::size_t i = 0; i < angles.size(); ++i) {
    // The tangent of the point (|x|, y) turned back by an eighth of the circle.
    const double t = (y[i] - std::fabs(x[i])) / (y[i] + std::fabs(x[i]));
    const double z = t * t;
    const double z2 = z * z;
    const double z4 = z2 * z2;
    const double series = (c[0] + c[1] * z) + (c[2] + c[3] * z) * z2 +
                          ((c[4] + c[5] * z) + (c[6] + c[7] * z) * z2) * z4 +
                          ((c[8] + c[9] * z) + c[10] * z2) * (z4 * z4);
    angles[i] = 2 * kEighth - std::copysign(kEighth - t * series, x[i]);
  }
  return angles;
}

// Returns distance and bearings by tangents; the exact formulas use cosines. `lon` decides between
// east and west.
DistanceAndBearings FiguresOf(const HomeStation& home, const FunctionValues& values, double lon) {
  const double cosArc = values[kCosArc];
  const double across = std::fabs(home.cosLat * values[kCosLatSinDeltaLon]);
  const double along = values[kSinLat] - cosArc * home.sinLat;
  const double alongBack = home.sinLat - cosArc * values[kSinLat];
  // All points are scaled by the cosine of the home station's latitude, which is negative beyond a
  // pole.
  const double scale = std::fabs(home.cosLat);
  const double sinArc = std::sqrt(across * across + along * along);
  const auto [arc, bearing, backbearing, unused] =
      AnglesOf({sinArc, across, across, 0},
               {cosArc * scale, home.cosLat < 0 ? -along : along, alongBack, 1});
  DistanceAndBearings figures{arc * kEarthRadius, bearing * kDegreesPerRadian,
                              backbearing * kDegreesPerRadian};
  if (lon < home.lon) figures.bearing = 360 - figures.bearing;
  if (home.lon < lon) figures.backbearing = 360 - figures.backbearing;
  return figures;
}

}  // namespace

bool AreWellConditioned(const DistanceAndBearings& figures) {
  constexpr double kLeast = 10, kMost = 20015 - 10;  // km
  constexpr double kFromMeridian = 0.1;              // degrees
  const auto isOffMeridian = [](double bearing) {
    const double fromSouth = std::fabs(bearing - 180);
    return fromSouth > kFromMeridian && fromSouth < 180 - kFromMeridian;
  };
  return figures.distance > kLeast && figures.distance < kMost && isOffMeridian(figures.bearing) &&
         isOffMeridian(figures.backbearing);
}

LocalPolynomials PolynomialsOf(const HomeStation& home, const Rectangle& square,
                               CoordinateForm form) {
  return Interpolate(square, [&home, form](double x, double y) {
    FunctionValues values{};
    double lat = y;
    double lon = x;
    if (form == CoordinateForm::LonLat) {
      WGS84ToGrid(lat, lon, values[kX], values[kY]);
    } else {
      GridToWGS84(x, y, lat, lon);
      values[kX] = lon;
      values[kY] = lat;
    }
    const double phi = lat / kDegreesPerRadian;
    const double deltaLon = (lon - home.lon) / kDegreesPerRadian;
    values[kCosArc] = home.sinLat * Sine(phi) + Cosine(phi) * home.cosLat * Cosine(deltaLon);
    values[kSinLat] = Sine(phi);
    values[kCosLatSinDeltaLon] = Cosine(phi) * Sine(deltaLon);
    return values;
  });
}

ApproximatePlace PlaceAt(const HomeStation& home, const LocalPolynomials& square,
                         CoordinateForm form, double x, double y) {
  const FunctionValues values = ValuesAt(square, x, y);
  const double lon = form == CoordinateForm::LonLat ? x : values[kX];
  return {values[kX], values[kY], FiguresOf(home, values, lon)};
}
