// How the current place lies from the home station, on a sphere.
#pragma once

#include "workspace/record/workspace.h"

inline constexpr double kEarthRadius = 6371.29;  // km

// Arc cosine, radians from 0 to pi, of a number from -1 to 1, by the arc tangent.
double ACS(double x);

// Great-circle distance, bearing and back bearing by the spherical law of cosines, radius
// 6371.29 km, and what the accuracy of both ends makes of them: each end counts as a displacement
// of 0.7 of its cell.
// Reads   Lat, Lon, BaseLat, BaseLong (degrees); Resolution, Baseresolution (km).
// Writes  Dist, DistUncert (km); Bearing, Backbearing, BearUncert (degrees, bearings 0 to 360).
// Never fails: under one metre, and at exact antipodes, everything but Dist is 0. Sides are told by
// the plain longitudes, so a path across the 180th meridian gets the bearing of the other side.
void DistBear(Workspace& w);
