#include "workspace/commands/place_display.h"

#include "geo/grid_reference.h"
#include "geo/lat_long_display.h"
#include "geo/locator.h"
#include "workspace/values/number_text.h"

void SetBackgrounds(Workspace& w, Rgb loc, Rgb ngr, Rgb ll) {
  w.Tarnwick.LocText.back = loc;
  w.Tarnwick.NGRText.back = ngr;
  w.Tarnwick.LLText.back = ll;
}

void ShowPlaceByLatLong(Workspace& w) {
  SetBackgrounds(w, kLatLongBackground, kLatLongBackground, kLatLongBackground);
  ShowLatLong(w);
  std::string lc;
  GenLocator(w.Lat, w.Lon, lc);
  w.Tarnwick.LocText.fore = kBlack;
  w.Tarnwick.LocText.text = lc;
  std::string ngr;
  GenNGR(w, w.Lat, w.Lon, ngr);
  w.Tarnwick.NGRText.text = ngr;
}

void ShowDistanceAndBearing(Workspace& w) {
  w.BearingCalc.DistText.text = FormatPicture(w.Dist, "####0.00#");
  w.BearingCalc.BearText.text = FormatPicture(w.Bearing, "##0.0");
  w.BearingCalc.BackBearText.text = FormatPicture(w.Backbearing, "##0.0");
}
