// The listing file: one row for each site of the database that passes the limits, with its
// distance and bearing from the home station.
#pragma once

#include "workspace/record/workspace.h"

// One whole run: reads the database that LocDatabase names, writes the file that ListFileName names
// anew, and opens it in the text viewer. The limits are the texts of MinDisttext, MaxDistText (km),
// FromBearText, ToBearText (degrees) and Srchtext. Lat, Lon, Dist and the rest are left as the last
// record made them. Without the database the message is "Site datbase not found"; any failure
// behind that gives "Path or filename error" and no viewer.
void MakeList_Click(Workspace& w);

// The same with a largest distance of 20 km, which stays in MaxDistText.
void LocSites_Click(Workspace& w);

// Shows the message for a listing that cannot be written or shown: "Path or filename error".
void ReportListingError(Workspace& w);

// A click on the check box: empties ListFileName and closes the Results window.
void ShowAll_Click(Workspace& w);
