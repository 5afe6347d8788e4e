// A place as a National Grid Reference of Great Britain.
#pragma once

#include <string>

#include "workspace/record/workspace.h"

// The accuracy of a reference's digits.
struct GridPrecision {
  int unit;            // m
  int digits;          // in each half
  int unitsPerSquare;  // units in a lettered square
};

// What the accuracy of a place, km, warrants: 2 digits above 2 km, 3 down to 0.1, 4 down to 0.01,
// else 5.
GridPrecision PrecisionFor(double resolution);

// The grid reference of a position on the grid, such as "TQ3198 7961".
//
// In   easting, northing  m, on the grid
//      resolution         km, how accurate the position is; PrecisionFor chooses the digits by it
//
// The digits are rounded, a tie to the even digit, and a rounding up to the next square goes into
// that square.
std::string GridReferenceOf(double easting, double northing, double resolution);

// The grid reference of a place by GridReferenceOf.
//
// In      LatIn, LonIn  degrees on WGS84
// Out     ngr           such as "TQ3198 7961"; empty outside the box; "Not valid" inside it but off
//                       the grid.
// Reads   Resolution.
// Writes  EastNorth and the caption of OSMap (the 10 km square of the reference shown), unless the
//         place is off the grid.
void GenNGR(Workspace& w, double LatIn, double LonIn, std::string& ngr);
