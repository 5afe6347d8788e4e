// The Transverse Mercator projection of the National Grid of Great Britain. Source: Ordnance
// Survey, "A guide to coordinate systems in Great Britain", annexes A and C.
#pragma once

// In   lat, lon           degrees on OSGB36
// Out  easting, northing  m on the National Grid; far from Great Britain the series mean nothing
void ProjectToGrid(double lat, double lon, double& easting, double& northing);

// In   easting, northing  m on the National Grid
// Out  lat, lon           degrees on OSGB36; not finite for absurd input
void UnprojectFromGrid(double easting, double northing, double& lat, double& lon);
