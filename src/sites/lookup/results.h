// The Results window: what a lookup found, to pick from.
#pragma once

#include "workspace/record/workspace.h"

// Shows the window a third of the way across and a quarter of the way down the main window, loading
// it with an empty list if it is not loaded.
void OpenResults(Workspace& w);

// Records where the window stands in ListLeft and ListTop and unloads it.
void CloseResults(Workspace& w);

namespace ShowList {

// Picks: the selected entry goes into InputText and Use This runs on it, also when an earlier pick
// has disabled it. Use This is disabled until a click in the input box, and Enter means Set as
// Home.
void OK_Click(Workspace& w);
// The same, by a double click on the entry.
void PR_DblClick(Workspace& w);

}  // namespace ShowList
