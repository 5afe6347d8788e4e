#include "workspace/commands/place_display.h"

#include "geo/grid_reference.h"
#include "geo/lat_long.h"
#include "geo/locator.h"
#include "workspace/values/number_text.h"

namespace {

constexpr Rgb kYellow{255, 255, 90};        // a typed reference
constexpr Rgb kGridLLYellow{255, 250, 90};  // LLText of a typed grid reference
constexpr Rgb kSand{255, 240, 200};         // a site of the database

}  // namespace

void SetBackgrounds(Workspace& w, InputKind kind) {
  const Rgb back = kind == kSiteName ? kSand : kind == kLatLong ? kLatLongBackground : kYellow;
  w.Tarnwick.LocText.back = back;
  w.Tarnwick.NGRText.back = back;
  w.Tarnwick.LLText.back = kind == kGridReference ? kGridLLYellow : back;
}

void ShowPlaceByLatLong(Workspace& w) {
  SetBackgrounds(w, kLatLong);
  ShowLatLong(w);
  w.Tarnwick.LocText.fore = kBlack;
  GenLocator(w.Lat, w.Lon, w.Tarnwick.LocText.text);
  GenNGR(w, w.Lat, w.Lon, w.Tarnwick.NGRText.text);
}

void ShowDistanceAndBearing(Workspace& w, InputKind kind) {
  w.BearingCalc.DistText.text = FormatPicture(w.Dist, "####0.00#");
  w.BearingCalc.BearText.text = FormatPicture(w.Bearing, "##0.0");
  w.BearingCalc.BackBearText.text = FormatPicture(w.Backbearing, "##0.0");
  const char* distance = kind == kLatLong ? "0.00#km " : "0.000km ";
  const char* bearing = kind == kLocator ? "0.0deg" : "0.0 deg";
  w.BearingCalc.UncertText.text =
      kind == kSiteName
          ? FormatPicture(w.BearUncert, "0.00#deg / ") + FormatPicture(w.DistUncert, "0.00km / ")
          : FormatPicture(w.DistUncert, distance) + FormatPicture(w.BearUncert, bearing);
}
