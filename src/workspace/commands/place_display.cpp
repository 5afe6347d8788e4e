#include "workspace/commands/place_display.h"

#include <string>

#include "geo/grid_reference.h"
#include "geo/lat_long_display.h"
#include "geo/locator.h"
#include "workspace/values/number_text.h"

namespace {

constexpr Rgb kYellow{255, 255, 90};        // a typed reference
constexpr Rgb kGridLLYellow{255, 250, 90};  // LLText of a typed grid reference
constexpr Rgb kSand{255, 240, 200};         // a site of the database

Rgb BackgroundOf(InputKind kind) {
  switch (kind) {
    case kSiteName:
      return kSand;
    case kLatLong:
      return kLatLongBackground;
    default:
      return kYellow;
  }
}

std::string UncertaintyText(const Workspace& w, InputKind kind) {
  switch (kind) {
    case kGridReference:
      return FormatPicture(w.DistUncert, "0.000km ") + FormatPicture(w.BearUncert, "0.0 deg");
    case kLocator:
      return FormatPicture(w.DistUncert, "0.000km ") + FormatPicture(w.BearUncert, "0.0deg");
    case kLatLong:
      return FormatPicture(w.DistUncert, "0.00#km ") + FormatPicture(w.BearUncert, "0.0 deg");
    default:
      return FormatPicture(w.BearUncert, "0.00#deg / ") + FormatPicture(w.DistUncert, "0.00km / ");
  }
}

}  // namespace

void SetBackgrounds(Workspace& w, InputKind kind) {
  w.Tarnwick.LocText.back = BackgroundOf(kind);
  w.Tarnwick.NGRText.back = BackgroundOf(kind);
  w.Tarnwick.LLText.back = kind == kGridReference ? kGridLLYellow : BackgroundOf(kind);
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
  w.BearingCalc.UncertText.text = UncertaintyText(w, kind);
}
