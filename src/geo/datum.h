// Converts positions between the datums WGS84 and OSGB36 (ellipsoid Airy 1830) by a seven-parameter
// Helmert transformation. Source: Ordnance Survey, "A guide to coordinate systems in Great
// Britain", annexes B and C. The result is within about 5 m of the official transformation. Heights
// are 0.
#pragma once

// Returns the angle of the point (x, y), radians from -pi to pi: the horizontal component x comes
// first, unlike std::atan2. Returns 0 at the origin and on the negative x axis.
double ATAN2(double x, double y);

// In   Lat1, Long1  degrees on OSGB36, any finite numbers
// Out  Lat2, Long2  degrees on WGS84
void AiryToWGS84(double Lat1, double Long1, double& Lat2, double& Long2);

// In   Lat1, Long1  degrees on WGS84, any finite numbers
// Out  Lat2, Long2  degrees on OSGB36. The parameters are those of AiryToWGS84 with the sign
//                   reversed, which is not the exact inverse: a conversion there and back moves a
//                   place by about 5e-8 degrees.
void WGS84ToAiry(double Lat1, double Long1, double& Lat2, double& Long2);
