// A place as a National Grid Reference of Great Britain.
#pragma once

#include <string>

#include "workspace/workspace.h"

// The grid reference of a place, with as many digits as the accuracy of the place warrants: 2 above
// a Resolution of 2 km, 3 down to 0.1, 4 down to 0.01, else 5 in each half. The digits are rounded,
// and a rounding up to the next square goes into that square.
// In      LatIn, LonIn  degrees on WGS84
// Out     ngr           such as "TQ3198 7961"; empty outside 49 to 61 N, 8 W to 1.8 E; "Not valid"
//                       inside that box but off the grid.
// Reads   Resolution.
// Writes  EastNorth and the caption of OSMap (the 10 km square of the reference shown), unless the
//         place is off the grid.
void GenNGR(Workspace& w, double LatIn, double LonIn, std::string& ngr);
