// Latitude and longitude as text: reads almost any everyday notation, and writes LLText.
#pragma once

#include <string>

#include "workspace/record/workspace.h"

// Reads degrees, minutes and seconds, with or without marks, in either order of the axes, each
// followed by its hemisphere letter: "51 30.5N 1 15.25W", "51°30'15''N, 1°15'30''W", "1.25W 51.5N".
// The letters are searched for in the whole text, N before S and E before W, so an N or E anywhere
// in the text takes precedence. There is no range check.
// In, out  a    the typed text; returned in upper case, with marks and commas replaced by blanks
//               and each run of blanks by one. If an axis has no hemisphere letter, the text is
//               returned empty and nothing is written.
// Writes   Lat, Lon (degrees, always finite), Resolution (0.001 km), Xdim and Ydim ("~").
void ParseLatLong(Workspace& w, std::string& a);

// Writes LLText from Lat and Lon (degrees) in the layout of LLFormat: 0 decimal degrees, 1 degrees
// and decimal minutes, 2 degrees, minutes and decimal seconds. Rounding does not carry: minutes or
// seconds that round up to 60 show as 60.
void ShowLatLong(Workspace& w);

// A click on LLfmt: changes LLFormat from 0 to 1, 1 to 2, 2 to 0 and writes LLText again.
void LLfmt_Click(Workspace& w);
