// The listing layout of the main window. The layout is what is visible: MakeList visible means the
// listing layout, else the main window has its lookup layout.
#pragma once

#include "workspace/record/workspace.h"

// Shows or hides the controls that only the listing layout has.
void ShowListingControls(MainWindow& main, bool visible);

// Changes to the listing layout: replaces Use This and Lookup by the limits and the button of the
// listing file, and makes the window high enough for them.
void GenList_Click(Workspace& w);
