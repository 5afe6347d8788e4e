// A click in the input box.
#pragma once

#include "workspace/record/workspace.h"

// Empties the input box and makes the window ready for a new input: closes the Results window, ends
// the listing layout and real-time mode. The height of the main window stays.
void InputText_Click(Workspace& w);
