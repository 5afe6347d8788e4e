#include "geo/national_grid.h"

#include "geo/datum.h"
#include "geo/transverse_mercator.h"
#include "workspace/values/rounding.h"

void WGS84ToGrid(double Lat, double Lon, double& easting, double& northing) {
  double lat = 0;
  double lon = 0;
  WGS84ToAiry(Lat, Lon, lat, lon);
  ProjectToGrid(lat, lon, easting, northing);
}

void GridToWGS84(double easting, double northing, double& Lat, double& Lon) {
  double lat = 0;
  double lon = 0;
  UnprojectFromGrid(easting, northing, lat, lon);
  AiryToWGS84(Finite(lat), Finite(lon), Lat, Lon);
}

bool IsInGridBox(double Lat, double Lon) {
  return !(Lat < 49 || Lat > 61 || Lon < -8 || Lon > 1.8);
}

bool IsOnGrid(double easting, double northing) {
  return easting > 0 && easting <= kEastEdge && northing > 0 && northing <= kNorthEdge;
}
