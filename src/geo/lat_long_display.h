// The current place as latitude and longitude in LLText.
#pragma once

#include "workspace/record/workspace.h"

// Writes LLText from Lat and Lon (degrees) in the layout of LLFormat: 0 decimal degrees, 1 degrees
// and decimal minutes, 2 degrees, minutes and decimal seconds. Rounding does not carry: minutes or
// seconds that round up to 60 show as 60.
void ShowLatLong(Workspace& w);

// Click on LLfmt: changes LLFormat from 0 to 1, 1 to 2, 2 to 0 and writes LLText again.
void LLfmt_Click(Workspace& w);
