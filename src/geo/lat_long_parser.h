// Latitude and longitude in almost any everyday writing: degrees, minutes and seconds with or
// without marks, either one first, each followed by its hemisphere letter.
#pragma once

#include <string>

#include "workspace/record/workspace.h"

// Reads "51 30.5N 1 15.25W", "51°30'15''N, 1°15'30''W", "1.25W 51.5N" and the like. The letters are
// searched for in the whole text, N before S and E before W, so a stray N or E wins. There is no
// range check.
// In, out  a    the typed text; comes back in capitals with its marks and commas as blanks and its
//               runs of blanks as one. Without a hemisphere letter for either axis it comes back
//               empty, and nothing else changes.
// Writes   Lat, Lon (degrees, always finite), Resolution (0.001 km), Xdim, Ydim ("~").
void ParseLatLong(Workspace& w, std::string& a);
