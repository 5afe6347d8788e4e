// The start and the end of a run.
#pragma once

#include "workspace/record/workspace.h"

// Brings workspace and windows to their first state: reads the stored settings, restores a stored
// home station, loads the set-up window hidden, which probes the ports, places the windows, and
// looks whether there are map images. A missing or damaged store gives the defaults.
void Form_Load(Workspace& w);

// Closes the serial port, stores the settings, the home station only if SaveOnExit is checked, and
// unloads all windows. Nothing can refuse it.
void Form_Unload(Workspace& w);
