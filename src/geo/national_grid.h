// What the National Grid encoder and decoder share: the Transverse Mercator projection of Great
// Britain. Source: Ordnance Survey, "A guide to coordinate systems in Great Britain", annexes A
// and C. Angles are radians and lengths metres.
#pragma once

#include <string>

#include "workspace/workspace.h"

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

inline constexpr double kSquare = 100000;  // side of a lettered square

// Length of the central meridian from the true origin to latitude phi.
double MeridionalArc(double phi);

// Radii of curvature at a latitude.
struct Curvature {
  double nu;          // in the prime vertical
  double rho;         // in the meridian
  double etaSquared;  // nu / rho - 1
};
// In   phi  latitude, radians.
Curvature CurvatureAt(double phi);

// Full easting and northing into EastNorth: "E: 531979 , N: 179607".
void ShowEastNorth(Workspace& w, double easting, double northing);
