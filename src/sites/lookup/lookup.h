// The lookup: lists every site whose line contains the text of the input box.
#pragma once

#include "workspace/record/workspace.h"

// Upper limit of the list, so that a file of bare line ends cannot exhaust memory.
inline constexpr std::size_t kMostEntries = 10'000'000;

// A click on Lookup: shows the Results window and adds every line that contains the text of
// InputText, cut at 28 characters; all lines if InputText is empty. A second lookup adds to the
// list. A message box reports a missing database, a failed read (the entries found so far stay) and
// a full list.
void Lookup_Click(Workspace& w);
