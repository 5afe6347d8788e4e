// Approximates the coordinates of a place in the other form, its distance and its bearings, for
// places in one square of the National Grid or of latitude and longitude. The polynomials take a
// tenth of the time of the exact formulas, and their errors are bounded.
#pragma once

#include "geo/dist_bear.h"
#include "geo/local_polynomials.h"

// Bounds on the errors, in every square of the National Grid and of the box of IsInGridBox. The
// tests measure the errors.
inline constexpr double kLatError = 1e-8;       // degrees
inline constexpr double kLonError = 5e-8;       // degrees
inline constexpr double kMetreError = 5e-4;     // m, of easting and northing
inline constexpr double kDistanceError = 5e-6;  // km
inline constexpr double kBearingError = 1e-5;   // degrees, where AreWellConditioned

// Whether kBearingError applies. It does not apply in three cases: within 10 km of the home station
// and of its antipode, where a small shift changes the bearing much; near due north and south,
// where a shift can swap east and west; and for a home station close to a pole. In the last two
// cases the exact bearing, an arc cosine near 0 or pi, has few correct digits itself.
bool AreWellConditioned(const HomeStation& home, const DistanceAndBearings& figures);

// The form in which the places of a square are known: x and y are easting and northing, m, or
// longitude and latitude, degrees. The other form comes from the polynomials.
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
