#include "workspace/commands/use_this.h"

#include "geo/dist_bear.h"
#include "geo/grid_reference.h"
#include "geo/lat_long_display.h"
#include "geo/lat_long_parser.h"
#include "geo/locator.h"
#include "pointing/compass.h"
#include "sites/database/line_reader.h"
#include "sites/database/site_line.h"
#include "sites/database/skip_lines.h"
#include "workspace/commands/classify_input.h"
#include "workspace/commands/place_display.h"
#include "workspace/values/number_text.h"
#include "workspace/values/strings.h"

namespace {

// The grounds of a typed reference and of a site.
constexpr Rgb kYellow{255, 255, 90};
constexpr Rgb kGridLLYellow{255, 250, 90};
constexpr Rgb kSand{255, 240, 200};

// The uncertainty in the words of each path: distance first for a typed place.
struct UncertaintyPictures {
  const char* distance;
  const char* bearing;
};

// The end of the typed paths. The figures are written without a home station too, unseen.
void FinishTypedPlace(Workspace& w, const UncertaintyPictures& pictures) {
  w.Tarnwick.SetHome.enabled = true;
  if (IsTrue(w.BaseSet)) DistBear(w);
  ShowDistanceAndBearing(w);
  w.sitename.clear();
  w.BearingCalc.UncertText.text = FormatPicture(w.DistUncert, pictures.distance) +
                                  FormatPicture(w.BearUncert, pictures.bearing);
  if (IsTrue(w.BaseSet)) Draw(w);
}

// Decodes a reference already shown in NGRText; the locator follows from it, in red.
void PlaceFromGridReference(Workspace& w, const std::string& ngr) {
  DecodeNGR(w, ngr, w.Lat, w.Lon);
  ShowLatLong(w);
  std::string lc;
  GenLocator(w.Lat, w.Lon, lc);
  w.Tarnwick.LocText.fore = kRed;
  w.Tarnwick.LocText.text = lc;
}

// Decodes a locator already shown in LocText; the reference follows from it, in red.
void PlaceFromLocator(Workspace& w, const std::string& lc) {
  DecodeLocator(w, lc, w.Lat, w.Lon);
  ShowLatLong(w);
  std::string ngr;
  GenNGR(w, w.Lat, w.Lon, ngr);
  w.Tarnwick.NGRText.fore = kRed;
  w.Tarnwick.NGRText.text = ngr;
}

void UseGridReference(Workspace& w, const std::string& s) {
  SetBackgrounds(w, kYellow, kYellow, kGridLLYellow);
  w.Tarnwick.NGRText.text = s;
  w.Tarnwick.InputText.text = s;
  w.BearingCalc.Ipt.text = s;
  PlaceFromGridReference(w, s);
  FinishTypedPlace(w, {"0.000km ", "0.0 deg"});
}

void UseLocator(Workspace& w, const std::string& s) {
  SetBackgrounds(w, kYellow, kYellow, kYellow);
  w.Tarnwick.NGRText.text.clear();
  w.Tarnwick.InputText.text = s;
  w.BearingCalc.Ipt.text = s;
  w.Tarnwick.LocText.text = s;
  PlaceFromLocator(w, s);
  FinishTypedPlace(w, {"0.000km ", "0.0deg"});
}

void UseLatLong(Workspace& w, std::string& s) {
  ParseLatLong(w, s);
  w.Tarnwick.InputText.text = s;
  w.BearingCalc.Ipt.text = s;
  ShowPlaceByLatLong(w);
  FinishTypedPlace(w, {"0.00#km ", "0.0 deg"});
}

void ShowNotFound(Workspace& w) {
  w.Tarnwick.InputText.text = "Not Found";
  w.BearingCalc.Ipt.text = "Not Found";
  w.Tarnwick.LocText.text.clear();
  w.Tarnwick.NGRText.text.clear();
  w.Tarnwick.LLText.text.clear();
}

// A site of the database whose position is `q`, upper case. A position that is no reference shows
// "ERROR", one that reads as latitude and longitude leaves the fields alone; both keep the place
// before, and what follows from it is worked out all the same.
void UseSite(Workspace& w, std::string q) {
  w.Tarnwick.InputText.text = w.sitename + Blanks(3) + q;
  w.BearingCalc.Ipt.text = w.Tarnwick.InputText.text;
  std::int16_t kind = kSiteName;
  ClassifyInput(q, kind);
  SetBackgrounds(w, kSand, kSand, kSand);
  if (kind == kSiteName) {
    w.Tarnwick.LocText.text = "ERROR";
    w.Tarnwick.NGRText.text = "ERROR";
    w.Tarnwick.LLText.text.clear();
  } else if (kind == kGridReference) {
    w.Tarnwick.NGRText.text = q;
    PlaceFromGridReference(w, q);
  } else if (kind == kLocator) {
    w.Tarnwick.NGRText.text.clear();
    w.Tarnwick.LocText.text = q;
    PlaceFromLocator(w, q);
  }
  w.Tarnwick.SetHome.enabled = true;
  if (!IsTrue(w.BaseSet)) return;
  DistBear(w);
  ShowDistanceAndBearing(w);
  w.BearingCalc.UncertText.text =
      FormatPicture(w.BearUncert, "0.00#deg / ") + FormatPicture(w.DistUncert, "0.00km / ");
  Draw(w);
}

// Uses the first line of the database that contains the text of InputText. Stores in sitename the
// name of the last line read. The handle stays open unless the end of the file was reached or a
// read failed.
void FindSite(Workspace& w) {
  if (!OpenDatabase(w)) return;
  const CaseBlindText sought(w.Tarnwick.InputText.text);
  std::string_view line;
  for (;;) {
    SkipNonMatchingSites(w.database, sought, w.sitename);
    if (!ReadLine(w.database, line)) break;
    if (HasEndMarker(line)) return ShowNotFound(w);
    const SiteLine site = SplitSiteLine(line);
    if (!site.isRecord) return;
    w.sitename = site.name;
    if (Matches(line, sought)) return UseSite(w, UpperOf(site.position));
  }
  const bool failed = w.database.failed;
  CloseDatabase(w);
  if (failed) ReportMissingDatabase(w);
}

}  // namespace

void FindIt_Click(Workspace& w) {
  CloseDatabase(w);
  w.Tarnwick.SetHome.enabled = false;
  w.Tarnwick.LocText.fore = kBlack;
  w.Tarnwick.NGRText.fore = kBlack;
  std::string s = UpperOf(w.Tarnwick.InputText.text);
  if (s.empty()) return;
  std::int16_t kind = kSiteName;
  ClassifyInput(s, kind);
  switch (kind) {
    case kGridReference:
      return UseGridReference(w, s);
    case kLocator:
      return UseLocator(w, s);
    case kLatLong:
      return UseLatLong(w, s);
    default:
      return FindSite(w);
  }
}
