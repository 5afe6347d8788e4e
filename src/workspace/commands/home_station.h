// The home station: the place from which distance and bearing are computed.
#pragma once

#include "workspace/record/workspace.h"

// A click on SetHome: makes the current place the home station and shows the Pointing window.
// Computes no distance; the next Use This does.
// Reads   Lat, Lon (degrees), Resolution (km), sitename, InputText, LocText, NGRText
// Writes  BaseLat, BaseLong (degrees), Baseresolution (km), BaseName, BaseSet, and the banner
//         BaseLocLbl, which is also the caption of the Pointing window. Empties Ipt. Enables
//         LocSites, and GenList unless the main window has the listing layout.
void SetHome_Click(Workspace& w);
