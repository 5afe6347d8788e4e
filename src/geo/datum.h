// Positions between WGS84 and OSGB36, whose ellipsoid is Airy 1830, by the seven-parameter Helmert
// transformation. Source: Ordnance Survey, "A guide to coordinate systems in Great Britain",
// annexes B and C. It agrees with the official transformation to about 5 m. Heights are 0.
#pragma once

// Angle in radians, from -pi to pi, of the point whose horizontal component is x and whose vertical
// component is y: the horizontal one comes first. 0 at the origin and on the negative x axis.
double ATAN2(double x, double y);

// In   Lat1, Long1  degrees on OSGB36
// Out  Lat2, Long2  degrees on WGS84
void AiryToWGS84(double Lat1, double Long1, double& Lat2, double& Long2);

// In   Lat1, Long1  degrees on WGS84
// Out  Lat2, Long2  degrees on OSGB36. Its parameters are those of AiryToWGS84 with their signs
//                   reversed, so a trip there and back is off by some 5e-8 degrees.
void WGS84ToAiry(double Lat1, double Long1, double& Lat2, double& Long2);
