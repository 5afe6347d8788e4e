// Distance and bearing from the home station to a place, on a sphere.
#pragma once

#include "workspace/record/workspace.h"

inline constexpr double kEarthRadius = 6371.29;  // km

// Returns the arc cosine, radians from 0 to pi, of a number from -1 to 1. Uses Arctangent and a pi
// of 12 decimals (geo/trigonometry.h), so it differs from std::acos in the last digits.
double ACS(double x);

// A home station, degrees, with the sine and the cosine of its latitude, which a listing needs for
// every record.
struct HomeStation {
  double lat = 0, lon = 0;
  double sinLat = 0, cosLat = 1;
};
HomeStation HomeStationAt(double lat, double lon);

struct DistanceAndBearings {
  double distance = 0;     // km
  double bearing = 0;      // degrees, 0 to 360, from the home station to the place
  double backbearing = 0;  // degrees, 0 to 360, from the place to the home station
};

// Returns the great-circle distance and bearings of a place (degrees) by the spherical law of
// cosines. Never fails:
// - Below one metre both bearings are 0.
// - At exact antipodes rounding decides: four of five pairs count as the same place (all results
//   are 0), the others have the distance 20,015.998 km.
// - East or west is decided by comparing the longitudes as numbers, so a path across the 180th
//   meridian gets the mirrored bearings.
DistanceAndBearings DistanceAndBearingsOf(const HomeStation& home, double lat, double lon);

// Computes distance and bearings of the current place, and their uncertainty: each of the two
// places may be off by 0.7 of the size of its cell. Below one metre both uncertainties are 0.
// Reads   Lat, Lon, BaseLat, BaseLong (degrees); Resolution, Baseresolution (km)
// Writes  Dist, DistUncert (km); Bearing, Backbearing, BearUncert (degrees)
void DistBear(Workspace& w);
