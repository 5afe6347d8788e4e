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

void DecodeReference(Workspace& w, const std::string& reference, InputKind kind,
                     std::string& locator, std::string& gridReference) {
  if (kind == kGridReference) {
    DecodeNGR(w, reference, w.Lat, w.Lon);
    GenLocator(w.Lat, w.Lon, locator);
    gridReference = reference;
  } else {
    DecodeLocator(w, reference, w.Lat, w.Lon);
    GenNGR(w, w.Lat, w.Lon, gridReference);
    locator = reference;
  }
}

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
  w.BearingCalc.DistText.text = FormatPicture(w.Dist.value_or(0), "####0.00#");
  w.BearingCalc.BearText.text = FormatPicture(w.Bearing.value_or(0), "##0.0");
  w.BearingCalc.BackBearText.text = FormatPicture(w.Backbearing.value_or(0), "##0.0");
  const double distUncert = w.DistUncert.value_or(0);
  const double bearUncert = w.BearUncert.value_or(0);
  const char* distance = kind == kLatLong ? "0.00#km " : "0.000km ";
  const char* bearing = kind == kLocator ? "0.0deg" : "0.0 deg";
  w.BearingCalc.UncertText.text =
      kind == kSiteName
          ? FormatPicture(bearUncert, "0.00#deg / ") + FormatPicture(distUncert, "0.00km / ")
          : FormatPicture(distUncert, distance) + FormatPicture(bearUncert, bearing);
}
