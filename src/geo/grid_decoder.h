// A National Grid Reference of Great Britain as a place.
#pragma once

#include <string>
#include <string_view>

#include "workspace/record/workspace.h"

// The south-west corner of the square that a reference names.
//
// In   ngr  upper case, no blanks: two letters, four digits, and whatever follows. Nothing is
//           refused: letters off the grid give a place off the grid. Of 7 digits the easting takes
//           4 and the northing 3; of 5 or 9 the last digit is not read. More than 10 digits give
//           the corner of the 100 km square.
// Out  easting, northing  m, finite
//      Resolution         km: 1, 0.1, 0.01, 0.001 for 2 to 5 digits in each half, else 100
void NGRToGrid(std::string_view ngr, double& easting, double& northing, double& Resolution);

// The same as a place.
//
// In      ngr       as above
// Out     Lat, Lon  degrees on WGS84, always finite
// Writes  Resolution, EastNorth, Ydim, Xdim, and the caption of OSMap (letters and first digit of
//         each half).
void DecodeNGR(Workspace& w, const std::string& ngr, double& Lat, double& Lon);
