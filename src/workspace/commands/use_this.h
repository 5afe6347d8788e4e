// The command that turns the input box into a place.
#pragma once

#include "workspace/record/workspace.h"

// Takes the text of InputText, tells what it is, decodes it or finds its site in the database, and
// shows the place in all its forms: LocText, NGRText, LLText with their colours, the accuracy, and
// with a home station set the figures and the compass of the Pointing window. SetHome is enabled
// when that led to a place and disabled otherwise. A failed decode goes on with the place before.
void FindIt_Click(Workspace& w);
