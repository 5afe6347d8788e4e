// The two layouts of the main window: the listing layout with the limits of a listing and the
// button MakeList, and the lookup layout with Use This and Lookup.
#pragma once

#include "workspace/record/workspace.h"

// A click on GenList: changes to the listing layout. Hides Use This and Lookup, shows the controls
// of the listing layout, makes the main window high enough for them (kListingHeight), clears the
// fields of the current place and closes the Results window.
void GenList_Click(Workspace& w);

// A click in the input box: empties it and prepares the main window for a new input. Closes the
// Results window, changes to the lookup layout, and ends real-time mode with its port closed. The
// main window keeps its height.
void InputText_Click(Workspace& w);
