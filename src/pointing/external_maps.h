// Shows the current place in other programs: the web map in a browser, the map image in a viewer.
#pragma once

#include "workspace/record/workspace.h"

// The web map service. "/maps/@LATITUDE,LONGITUDE,ZOOMz" after it shows a place.
inline constexpr const char* kMapService = "https://www.google.com";

// A click on Gmap: opens the web map at Lat and Lon (degrees, six decimals), zoom 14.
void Gmap_Click(Workspace& w);

// A click on OSMap: opens the image of the 10 km square in the caption of OSMap, such as
// c:\OS_Maps\TQ37.JPG, whether or not there is such a file.
void OSMap_Click(Workspace& w);
