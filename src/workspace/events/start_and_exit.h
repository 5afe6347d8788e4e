// The start and the end of a run of the program.
#pragma once

#include "workspace/record/workspace.h"

// Start: reads the stored settings, restores a stored home station, loads the set-up window hidden
// (which tries the ports), places the windows (twips) and enables OSMap if there are map images
// now. A missing setting has its default; TextToNumber reads a damaged number.
void Form_Load(Workspace& w);

// Exit: closes the serial port, stores the settings (the home station only if SaveOnExit is
// checked) and unloads all windows. The user cannot cancel the exit.
void Form_Unload(Workspace& w);
