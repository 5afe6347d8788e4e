// A place as a National Grid Reference of Great Britain.
#pragma once

#include <string>

#include "workspace/workspace.h"

// In      Lat, Lon           degrees on WGS84
// Out     easting, northing  m on the National Grid; far from it the series mean nothing
void WGS84ToGrid(double Lat, double Lon, double& easting, double& northing);

// Whether a place lies in the box, edges included, outside which there are no references:
// 49 to 61 N, 8 W to 1.8 E.
bool IsInGridBox(double Lat, double Lon);

// Inside it a position is on the grid if both are above 0 and not beyond these, m.
inline constexpr double kEastEdge = 700000;
inline constexpr double kNorthEdge = 1400000;

// How fine the digits of a reference are.
struct Fineness {
  int unit;        // m
  int digits;      // in each half
  int wholeCount;  // units in a lettered square
};

// What the accuracy of a place, km, warrants: 2 digits above 2 km, 3 down to 0.1, 4 down to 0.01,
// else 5.
Fineness FinenessFor(double resolution);

// The two letters of a 100 km square, counted from the south-west corner SV; I is never used.
std::string LettersOf(int eastIndex, int northIndex);

// The grid reference of a place, with as many digits as FinenessFor its Resolution. They are
// rounded, and a rounding up to the next square goes into that square.
//
// In      LatIn, LonIn  degrees on WGS84
// Out     ngr           such as "TQ3198 7961"; empty outside the box; "Not valid" inside it but off
//                       the grid.
// Reads   Resolution.
// Writes  EastNorth and the caption of OSMap (the 10 km square of the reference shown), unless the
//         place is off the grid.
void GenNGR(Workspace& w, double LatIn, double LonIn, std::string& ngr);
