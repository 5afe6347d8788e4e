// Shows the current place in the fields of the main window and the Pointing window.
#pragma once

#include "workspace/record/workspace.h"

// Sets the background colours of LocText, NGRText and LLText.
void SetBackgrounds(Workspace& w, Rgb loc, Rgb ngr, Rgb ll);

// Writes LocText, NGRText and LLText from Lat and Lon, on the background that marks a latitude and
// longitude, typed or stored, as the input.
void ShowPlaceByLatLong(Workspace& w);
inline constexpr Rgb kLatLongBackground{180, 255, 200};

// Writes Dist, Bearing and Backbearing into the fields of the Pointing window; zeros while they are
// empty.
void ShowDistanceAndBearing(Workspace& w);
