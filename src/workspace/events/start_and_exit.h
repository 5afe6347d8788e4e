// The start and the end of a run of the program.
#pragma once

#include "workspace/record/workspace.h"

// Start: reads the stored settings, restores a stored home station, loads the set-up window hidden
// (which tries the ports), places the windows (twips) and enables OSMap if there are map images; a
// folder that appears later is noticed at the next start. A missing setting gets its default, a
// damaged one reads as far as it is a number.
void Form_Load(Workspace& w);

// Exit: closes the serial port, stores the settings (the home station only if SaveOnExit is
// checked) and unloads all windows. Nothing can stop it.
void Form_Unload(Workspace& w);
