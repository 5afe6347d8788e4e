// Distance and bearing from the home station to the current place, on a sphere.
#pragma once

#include "workspace/record/workspace.h"

inline constexpr double kEarthRadius = 6371.29;  // km

// Returns the arc cosine, radians from 0 to pi, of a number from -1 to 1. Uses Arctangent and a pi
// of 12 decimals (geo/angles.h), so it differs from std::acos in the last digits.
double ACS(double x);

// Computes the great-circle distance, bearing and back bearing by the spherical law of cosines, and
// their uncertainty: either end may be off by 0.7 of the size of its cell. Never fails.
// Reads   Lat, Lon, BaseLat, BaseLong (degrees); Resolution, Baseresolution (km)
// Writes  Dist, DistUncert (km); Bearing, Backbearing, BearUncert (degrees, bearings 0 to 360)
// - Below one metre Bearing, Backbearing and both uncertainties are 0.
// - At exact antipodes rounding decides: four of five pairs count as the same place (all results
//   0), the others have the distance 20,015.998 km.
// - Only the longitudes as numbers decide between east and west, so a path across the 180th
//   meridian gets the mirrored bearings.
void DistBear(Workspace& w);
