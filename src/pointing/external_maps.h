// The current place in viewers outside the program.
#pragma once

#include "workspace/record/workspace.h"

// The web map service; it understands "/maps/@", a latitude, a longitude and a zoom behind it.
inline constexpr const char* kMapService = "https://www.google.com";

// Sets MapPath and enables OSMap if that folder holds an image. Settled here for the whole run.
void LookForMaps(Workspace& w);

// Hands Lat and Lon, at zoom 14, to the web map.
void Gmap_Click(Workspace& w);

// Opens the image of the 10 km square that the caption of OSMap names; whether there is one, the
// viewer finds out.
void OSMap_Click(Workspace& w);
