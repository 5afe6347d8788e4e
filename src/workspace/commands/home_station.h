// The place from which distance and bearing are reckoned.
#pragma once

#include "workspace/record/workspace.h"

// Makes the current place the home station: BaseLat, BaseLong, Baseresolution, BaseName, BaseSet
// and the banner, in the main window and as the caption of the Pointing window, which it shows.
// Works out no distance; the next Use This does.
void SetHome_Click(Workspace& w);
