// Maidenhead locators: pairs of characters, longitude first; each pair divides the cell of the last
// pair: field, square, subsquare, extended square, finest square. Source: IARU Region 1, "Locator
// system". Upper case throughout, ten characters at most.
#pragma once

#include <string>
#include <string_view>

#include "workspace/record/workspace.h"

// Finest squares in one degree of latitude, and in two degrees of longitude.
inline constexpr double kFinestSquares = 5760;

// Converts a locator to a place. Missing characters count as 44, then MM: 10 characters return the
// centre of their cell, 8 the centre of the cell MM in it, 6 the centre of the cell 44MM in it,
// which is 2.26' east and 1.13' north of the south-west corner.
// In   lc          upper case, no blanks, an even number of characters, at least 6, of which the
//                  first ten count. Characters out of their range count by their code, so the
//                  place may lie beyond a pole.
// Out  Lat, Lon    degrees
//      Resolution  km, height of the cell
void LocatorToWGS84(std::string_view lc, double& Lat, double& Lon, double& Resolution);

// Returns in `lc` the ten-character locator of the cell that contains a place. The place is
// never rounded to the next cell, and not clamped: the north pole has the letter S, one after the
// last letter of the standard, R.
// In   Lat, Lon  degrees
// Out  lc        ten characters; their codes saturate at 0 and 255
void GenLocator(double Lat, double Lon, std::string& lc);

// Reads a locator as LocatorToWGS84 does and shows the size of its cell: writes Resolution (km,
// height of the cell), Ydim and Xdim (height and width in metres). An odd length writes "Locator
// error" into InputText and changes nothing else.
void DecodeLocator(Workspace& w, const std::string& lc, double& Lat, double& Lon);
