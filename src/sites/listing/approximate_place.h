// Places in a square of the National Grid or of latitude and longitude: the other form of their
// coordinates, distance and bearings, by polynomials in a tenth of the time that the plain formulas
// take, with errors that are known and small.
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

// Whether kBearingError and kDistanceError apply. Close to the home station and to its antipode a
// small shift turns the bearing further; close to due north and south it could change the side of
// the home station, and the exact arc cosine has few digits; so it has everywhere close to a pole.
bool AreWellConditioned(const HomeStation& home, const DistanceAndBearings& figures);

// The form in which the places of a square are known: x and y are easting and northing, m, or
// longitude and latitude, degrees. The other form comes from the polynomials.
enum class CoordinateForm { EastingNorthing, LonLat };

// The polynomials of a lettered square, or of a square of 2 by 1 degrees, at a cost of 15 exact
// conversions.
LocalPolynomials PolynomialsOf(const HomeStation& home, const Rectangle& square,
                               CoordinateForm form);

struct ApproximatePlace {
  double x = 0, y = 0;  // in the other form
  DistanceAndBearings figures;
};

// The place with the coordinates x and y in a square.
ApproximatePlace PlaceAt(const HomeStation& home, const LocalPolynomials& square,
                         CoordinateForm form, double x, double y);
