// Shows the current place in the main window, and its distance and bearing in the Pointing window.
#pragma once

#include "workspace/commands/classify_input.h"
#include "workspace/record/workspace.h"

// The background of a place that was entered as latitude and longitude.
inline constexpr Rgb kLatLongBackground{180, 255, 200};

// Decodes a grid reference or a locator as DecodeNGR or DecodeLocator does, into Lat and Lon, and
// writes both references of the place: the given one, and the other one calculated from it.
void DecodeReference(Workspace& w, const std::string& reference, InputKind kind,
                     std::string& locator, std::string& gridReference);

// Sets the background colours of LocText, NGRText and LLText, which mark the kind of input that the
// place came from.
void SetBackgrounds(Workspace& w, InputKind kind);

// Writes LocText, NGRText and LLText from Lat and Lon (degrees), for a place that was entered as
// latitude and longitude or restored from the settings.
void ShowPlaceByLatLong(Workspace& w);

// Writes Dist, Bearing, Backbearing and the uncertainties into DistText, BearText, BackBearText and
// UncertText. A value that was never computed shows as 0. The wording of UncertText depends on the
// kind of input.
void ShowDistanceAndBearing(Workspace& w, InputKind kind);
