// The Results window: the list of sites that a lookup found, and picking one of them.
#pragma once

#include "workspace/record/workspace.h"

// Shows the window a third of the main window's width to the right of the main window's left edge,
// and a quarter of its height below its top edge. Loads the window with an empty list if the window
// is not loaded.
void OpenResults(Workspace& w);

// Stores the position of the window in ListLeft and ListTop and unloads it.
void CloseResults(Workspace& w);

namespace ShowList {

// Picks the selected entry, as a double click on it does: copies it to InputText and runs Use This,
// even if an earlier pick has disabled it. Then disables Use This until a click in the input box,
// and makes Set as Home the default button.
void OK_Click(Workspace& w);

}  // namespace ShowList
