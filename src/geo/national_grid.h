// Eastings and northings on the National Grid of Great Britain, by the Transverse Mercator
// projection, and where the grid ends. Source: Ordnance Survey, "A guide to coordinate systems in
// Great Britain", annexes A and C.
#pragma once

// In   Lat, Lon           degrees on WGS84
// Out  easting, northing  m; meaningless far from Great Britain
void WGS84ToGrid(double Lat, double Lon, double& easting, double& northing);

// In   easting, northing  m, finite
// Out  Lat, Lon           degrees on WGS84, always finite
void GridToWGS84(double easting, double northing, double& Lat, double& Lon);

// The grid extends from 0 to these limits, m.
inline constexpr double kEastEdge = 700000;
inline constexpr double kNorthEdge = 1400000;
