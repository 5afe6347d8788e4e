// How the current place lies from the home station, on a sphere.
#pragma once

#include "workspace/record/workspace.h"

inline constexpr double kEarthRadius = 6371.29;  // km

// Arc cosine, radians from 0 to pi, of a number from -1 to 1, by the arc tangent.
double ACS(double x);

// A home station, degrees, with the sine and the cosine of its latitude.
struct HomeStation {
  double lat = 0, lon = 0;
  double sinLat = 0, cosLat = 1;
};
HomeStation HomeStationAt(double lat, double lon);

// How a place lies from the home station; 0 to 360 degrees.
struct DistanceAndBearings {
  double distance = 0;     // km
  double bearing = 0;      // degrees, of the place from the home station
  double backbearing = 0;  // degrees, of the home station from the place
};

// Great-circle distance, bearing and back bearing of a place (degrees) by the spherical law of
// cosines, radius 6371.29 km. Under one metre both bearings are 0; at an exact antipode all three
// may be. Sides are told by the plain longitudes, so a path across the 180th meridian has the
// bearing of the other side.
DistanceAndBearings DistanceAndBearingsOf(const HomeStation& home, double lat, double lon);

// The same for the current place, and the uncertainty that follows from the accuracy of both ends:
// each end counts as a displacement of 0.7 of its cell.
// Reads   Lat, Lon, BaseLat, BaseLong (degrees); Resolution, Baseresolution (km).
// Writes  Dist, DistUncert (km); Bearing, Backbearing, BearUncert (degrees). Never fails: where the
//         distance is under one metre, everything but Dist is 0.
void DistBear(Workspace& w);
