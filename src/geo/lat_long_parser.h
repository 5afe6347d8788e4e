// Reads latitude and longitude in almost any everyday notation: degrees, minutes and seconds, with
// or without marks, in either order, each followed by its hemisphere letter.
#pragma once

#include <string>

#include "workspace/record/workspace.h"

// Reads "51 30.5N 1 15.25W", "51°30'15''N, 1°15'30''W", "1.25W 51.5N" and the like. The hemisphere
// letters are searched for in the whole text, N before S and E before W, so an N or E anywhere
// in the text decides. There is no range check.
// In, out  a    the typed text; returned in upper case, with marks and commas replaced by blanks
//               and each run of blanks by one. If an axis has no hemisphere letter, the text is
//               returned empty and nothing is written.
// Writes   Lat, Lon (degrees, always finite), Resolution (0.001 km), Xdim and Ydim ("~").
void ParseLatLong(Workspace& w, std::string& a);
