// The current place as latitude and longitude on screen.
#pragma once

#include "workspace/record/workspace.h"

// Writes LLText from Lat and Lon (degrees) in the layout of LLFormat: 0 decimal degrees, 1 degrees
// and decimal minutes, 2 degrees, minutes and decimal seconds. Minutes or seconds that round up to
// 60 show as 60.
void ShowLatLong(Workspace& w);

// Steps LLFormat through 0, 1, 2 and shows the place anew.
void LLfmt_Click(Workspace& w);
