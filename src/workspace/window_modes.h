// The two layouts of the main window. The layout is what is visible: MakeList visible means the
// listing layout.
#pragma once

#include "workspace/workspace.h"

// To the listing layout: the limits and the command of the listing file in place of Use This and
// Lookup, and the window high enough for them.
void GenList_Click(Workspace& w);

// A mouse click in the input box: empties it and makes the window ready for a new input, closes
// the Results window, ends the listing layout and real-time mode. The height of the window stays.
void InputText_Click(Workspace& w);
