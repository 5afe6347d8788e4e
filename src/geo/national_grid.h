// Places on the National Grid of Great Britain in metres, and where the grid ends.
#pragma once

// In   Lat, Lon           degrees on WGS84
// Out  easting, northing  m on the National Grid; far from it the series mean nothing
void WGS84ToGrid(double Lat, double Lon, double& easting, double& northing);

// In   easting, northing  m on the National Grid, finite
// Out  Lat, Lon           degrees on WGS84, always finite
void GridToWGS84(double easting, double northing, double& Lat, double& Lon);

// Whether a place (degrees on WGS84) lies in the box, edges included, outside which there are no
// references: 49 to 61 N, 8 W to 1.8 E.
bool IsInGridBox(double Lat, double Lon);

// A position inside the box is on the grid if its easting and northing are above 0 and not above
// these limits, m.
inline constexpr double kEastEdge = 700000;
inline constexpr double kNorthEdge = 1400000;
bool IsOnGrid(double easting, double northing);
