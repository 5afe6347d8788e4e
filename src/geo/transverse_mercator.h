// The Transverse Mercator projection of the National Grid of Great Britain. Source: Ordnance
// Survey, "A guide to coordinate systems in Great Britain", annexes A and C. Lengths are metres.
#pragma once

inline constexpr double kAF0 = 6375020.480988971;  // Airy 1830 semi-axes times the scale factor
inline constexpr double kBF0 = 6353722.490487913;  // 0.9996012717 of the central meridian
// The third flattening and the square of the eccentricity, which are those of the ellipsoid.
inline constexpr double kGridN = (kAF0 - kBF0) / (kAF0 + kBF0);
inline constexpr double kGridESquared = (kAF0 * kAF0 - kBF0 * kBF0) / (kAF0 * kAF0);

// The true origin, degrees, and the false coordinates that it has.
inline constexpr double kOriginLat = 49;
inline constexpr double kOriginLon = -2;
inline constexpr double kFalseEasting = 400000;
inline constexpr double kFalseNorthing = -100000;

// Length of the central meridian from the true origin to latitude phi (radians).
double MeridionalArc(double phi);

// In   lat, lon           degrees on OSGB36
// Out  easting, northing  m on the National Grid; far from Great Britain the series mean nothing
void ProjectToGrid(double lat, double lon, double& easting, double& northing);

// In   easting, northing  m on the National Grid
// Out  lat, lon           degrees on OSGB36; not finite for absurd input
void UnprojectFromGrid(double easting, double northing, double& lat, double& lon);
