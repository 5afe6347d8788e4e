// The listing file: one row for each site of the database that passes the limits, with its
// distance and bearing from the home station.
#pragma once

#include "workspace/record/workspace.h"

// Reads the database that LocDatabase names, writes the file that ListFileName names, replacing an
// old one, and opens it in the text viewer.
// Reads   LocDatabase, ListFileName, MinDisttext, MaxDistText (km), FromBearText, ToBearText
//         (degrees), Srchtext, and the home station.
// Writes  Lat, Lon, Dist and all else that decoding the last record changes.
// Without the database the message is "Site datbase not found"; for any later failure it is "Path
// or filename error", and no viewer is started.
void MakeList_Click(Workspace& w);

// Runs MakeList_Click with 20 km in MaxDistText, where it stays.
void LocSites_Click(Workspace& w);

// Shows the message for a listing that cannot be written or shown: "Path or filename error".
void ReportListingError(Workspace& w);

// A click on the check box: empties ListFileName and closes the Results window.
void ShowAll_Click(Workspace& w);
