// The listing layout of the main window: the limits and the button of the listing file. MakeList is
// visible in this layout only; otherwise the main window has its lookup layout.
#pragma once

#include "workspace/record/workspace.h"

// Shows or hides the controls that only the listing layout has.
void ShowListingControls(MainWindow& main, bool visible);

// Click on GenList: changes to the listing layout. Hides Use This and Lookup, shows the controls of
// the listing layout, makes the main window high enough for them (kListingHeight), clears the
// fields of the current place and closes the Results window.
void GenList_Click(Workspace& w);
