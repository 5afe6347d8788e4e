// The listing file: one row for each site of the database that passes the limits, with its
// distance and bearing from the home station.
#pragma once

#include "workspace/record/workspace.h"

// Reads the database that LocDatabase names, writes (or replaces) the file that ListFileName names,
// and opens the file in the text viewer.
// Reads   LocDatabase, ListFileName, MinDisttext, MaxDistText (km), FromBearText, ToBearText
//         (degrees), Srchtext, and the home station.
// Writes  Lat, Lon, Dist and all else that decoding the last record changes.
// If the database cannot be opened, shows "Site datbase not found". After any later failure shows
// "Path or filename error"; the viewer starts only if the file was written.
void MakeList_Click(Workspace& w);

// Runs MakeList_Click with 20 km in MaxDistText, where it stays.
void LocSites_Click(Workspace& w);

// Shows the message for a listing that cannot be written or shown: "Path or filename error".
void ReportListingError(Workspace& w);

// A click on the check box: empties ListFileName and closes the Results window.
void ShowAll_Click(Workspace& w);
