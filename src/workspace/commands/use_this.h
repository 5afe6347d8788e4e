// The command Use This: turns the text of the input box into the current place.
#pragma once

#include "workspace/record/workspace.h"

// Classifies the text of InputText, decodes it or finds its site in the database, and shows the
// place: LocText, NGRText and LLText with their colours, the accuracy and, if there is a home
// station, the figures and the compass of the Pointing window. SetHome is enabled when there is a
// place and disabled otherwise. A text that cannot be decoded leaves the old place, and the rest is
// shown for that.
void FindIt_Click(Workspace& w);
