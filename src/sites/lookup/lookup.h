// The lookup, which lists every site whose line contains the text of the input box, and the Results
// window, in which the user picks one of them.
#pragma once

#include "workspace/record/workspace.h"

// Upper limit of the list, so that a file of bare line ends cannot exhaust memory.
inline constexpr std::size_t kMostEntries = 10'000'000;

// A click on Lookup: shows the Results window and adds every line that contains the text of
// InputText, cut at 28 characters; all lines if InputText is empty. A second lookup adds to the
// list. A message box reports a missing database, a failed read (the entries found so far stay) and
// a full list.
void Lookup_Click(Workspace& w);

// Shows the Results window a third of the main window's width to the right of the main window's
// left edge, and a quarter of its height below its top edge. Loads the window with an empty list if
// the window is not loaded.
void OpenResults(Workspace& w);

// Stores the position of the window in ListLeft and ListTop and unloads it.
void CloseResults(Workspace& w);

namespace ShowList {

// Picks the selected entry, as a double click on it does: copies it to InputText and runs Use This,
// even if an earlier pick has disabled it. Then disables Use This until a click in the input box,
// and makes Set as Home the default button.
void OK_Click(Workspace& w);

}  // namespace ShowList
