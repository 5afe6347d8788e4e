// Click in the input box.
#pragma once

#include "workspace/record/workspace.h"

// Empties the input box and prepares the main window for a new input: closes the Results window,
// hides the controls of the listing layout, shows Use This and Lookup, and ends real-time mode with
// its port closed. The main window keeps its height.
void InputText_Click(Workspace& w);
