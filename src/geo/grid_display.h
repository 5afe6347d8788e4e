// Eastings and northings on screen.
#pragma once

#include "workspace/record/workspace.h"

// Writes full easting and northing, m, into EastNorth: "E: 531979 , N: 179607".
void ShowEastNorth(Workspace& w, double easting, double northing);
