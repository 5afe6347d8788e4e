// National Grid references of Great Britain, such as "TQ3198 7961": two letters name a square of
// 100 km, the digits an easting and a northing inside it. geo/national_grid.h converts between
// metres on the grid and degrees. Source: Ordnance Survey, "A guide to coordinate systems in Great
// Britain".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "workspace/record/workspace.h"

inline constexpr int kSquareSide = 100000;  // m

// Returns the easting and northing, m, of the south-west corner of a square, off the grid for
// letters off the grid. Letters are A to Z; the grid alphabet has no I, and an I counts as J.
std::pair<int, int> SquareCorner(char firstLetter, char secondLetter);

// Returns the number of digits in each half of a reference that the accuracy of a place, km,
// justifies: 2 above 2 km, 3 from 0.1 km on, 4 from 0.01 km on, else 5.
std::size_t DigitsFor(double resolution);

// Returns the size, m, of one unit of the last of so many digits; 0 above 5 digits.
int UnitOf(std::size_t digits);

// Reads a grid reference: the south-west corner of the cell that it names.
// In   ngr                upper case, no blanks: two letters, four digits, and anything after them.
//                         Each half of the digits is read by TextToNumber, so no text is rejected.
//                         With 7 digits the easting takes 4 and the northing 3, in the same unit;
//                         with 5 or 9 the last digit is not read.
// Out  easting, northing  m, finite; off the grid for letters off the grid
//      Resolution         km, side of the cell: 1, 0.1, 0.01, 0.001 for 2 to 5 digits in each half;
//                         100 for more digits, which name the corner of the 100 km square
void NGRToGrid(std::string_view ngr, double& easting, double& northing, double& Resolution);

// Reads a grid reference as NGRToGrid does.
// Out     Lat, Lon  degrees on WGS84, always finite; off the grid for letters off the grid
// Writes  Resolution (km), Ydim and Xdim (the same in metres), EastNorth (m), and the caption of
//         OSMap (the letters and the first digit of each half, which name the 10 km square).
void DecodeNGR(Workspace& w, const std::string& ngr, double& Lat, double& Lon);

// Returns the reference of a position on the grid, m, with the digits of DigitsFor(resolution,
// in km), such as "TQ3198 7961". The digits are rounded; a tie goes to the even digit. A
// coordinate that rounds up to the edge of a square carries into the next square.
std::string GridReferenceOf(double easting, double northing, double resolution);

// Writes the grid reference of a place by GridReferenceOf.
// In      LatIn, LonIn  degrees on WGS84
// Out     ngr           such as "TQ3198 7961"; empty outside the box from 49 to 61 N and from 8 W
//                       to 1.8 E; "Not valid" inside it but beyond kEastEdge or kNorthEdge
// Reads   Resolution (km).
// Writes  EastNorth (m) and the caption of OSMap (the 10 km square of the reference), only if the
//         place is on the grid.
void GenNGR(Workspace& w, double LatIn, double LonIn, std::string& ngr);
