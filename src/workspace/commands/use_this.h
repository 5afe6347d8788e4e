// The command Use This: turns the text of the input box into the current place.
#pragma once

#include "workspace/record/workspace.h"

// Classifies the text of InputText, decodes it or finds its site in the database, and shows the
// place: LocText, NGRText and LLText with their colours, the resolution and, if there is a home
// station, the figures and the compass of the Pointing window. If the text is empty or no site
// is found, disables SetHome; otherwise enables it. If the text or the position of the site cannot
// be decoded, the old place stays, and the figures are those of the old place.
void FindIt_Click(Workspace& w);
