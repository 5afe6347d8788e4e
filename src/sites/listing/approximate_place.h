// Approximate numbers of a place in a square of the National Grid or of latitude and longitude: its
// coordinates in the other form, its distance and bearings. They come from polynomials, in a tenth
// of the time that the exact formulas take, and their errors are bounded.
#pragma once

#include "geo/dist_bear.h"
#include "geo/local_polynomials.h"

// Bounds on the errors, in every square of the National Grid and of the box outside which there are
// no references. The tests measure them.
inline constexpr double kLatError = 1e-8;       // degrees
inline constexpr double kLonError = 5e-8;       // degrees
inline constexpr double kMetreError = 5e-4;     // m, of easting and northing
inline constexpr double kDistanceError = 5e-6;  // km
inline constexpr double kBearingError = 1e-5;   // degrees, where AreWellConditioned

// Whether kBearingError applies. It does not within 10 km of the home station and of its antipode,
// where a small shift turns the bearing far. It does not near due north and south: there a shift
// can change the side of the home station, and the exact bearing, an arc cosine, has few correct
// digits itself. From every place, a home station close to a pole lies due north or south.
bool AreWellConditioned(const DistanceAndBearings& figures);

// The form of the coordinates x and y in a square: easting and northing, m, or longitude and
// latitude, degrees. The polynomials return the other form.
enum class CoordinateForm { EastingNorthing, LonLat };

// Returns the polynomials of a lettered square, or of a square of 2 by 1 degrees. Takes as long as
// 15 exact conversions.
LocalPolynomials PolynomialsOf(const HomeStation& home, const Rectangle& square,
                               CoordinateForm form);

struct ApproximatePlace {
  double x = 0, y = 0;  // in the other form
  DistanceAndBearings figures;
};

// Returns the place with the coordinates x and y in a square.
ApproximatePlace PlaceAt(const HomeStation& home, const LocalPolynomials& square,
                         CoordinateForm form, double x, double y);
