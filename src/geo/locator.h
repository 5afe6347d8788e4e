// Maidenhead locators: pairs of characters, longitude first, each pair dividing the cell of the one
// before. Source: IARU Region 1, "Locator system"; capitals throughout, five pairs at most.
#pragma once

#include <string>
#include <string_view>

#include "workspace/record/workspace.h"

// The centre of the cell of a locator of 6, 8 or 10 characters as DecodeLocator works it out, and
// the height of the cell.
//
// In   lc          upper case, no blanks, an even number of characters, at least 6
// Out  Lat, Lon    degrees
//      Resolution  km
void LocatorToWGS84(std::string_view lc, double& Lat, double& Lon, double& Resolution);

// The place that a locator of 6, 8 or 10 characters stands for; further characters are ignored.
// In      lc    upper case, no blanks, at least 6 characters; characters out of their range count
//               by their code, so the place may lie beyond the poles.
// Out     Lat, Lon  degrees: the centre of the cell of 8 or 10 characters, and for 6 the centre of
//               the cell 44MM inside it, 2.26' east and 1.13' north of its corner.
// Writes  Resolution (km, height of the cell), Ydim, Xdim (its height and width in metres).
// An odd length writes "Locator error" into InputText and changes nothing else.
void DecodeLocator(Workspace& w, const std::string& lc, double& Lat, double& Lon);

// The ten-character locator of the cell that holds a place. Every position is cut, never rounded;
// nothing is clamped, so the north pole gives S, one past the standard's R.
// In   Lat, Lon  degrees.
// Out  lc        ten characters; codes out of the single-byte range saturate.
void GenLocator(double Lat, double Lon, std::string& lc);
