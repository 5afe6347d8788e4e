#include "workspace/commands/use_this.h"

#include <string>
#include <string_view>

#include "geo/dist_bear.h"
#include "geo/lat_long.h"
#include "pointing/compass.h"
#include "sites/database/line_reader.h"
#include "sites/database/site_line.h"
#include "sites/database/text_search.h"
#include "workspace/commands/classify_input.h"
#include "workspace/commands/place_display.h"
#include "workspace/values/strings.h"

namespace {

// Decodes a grid reference or a locator and shows it, the reference of the other kind calculated
// from it in red, and the latitude and longitude.
void UseReference(Workspace& w, const std::string& reference, InputKind kind) {
  TextBox& loc = w.Tarnwick.LocText;
  TextBox& ngr = w.Tarnwick.NGRText;
  DecodeReference(w, reference, kind, loc.text, ngr.text);
  (kind == kGridReference ? loc : ngr).fore = kRed;
  ShowLatLong(w);
}

// Uses a typed grid reference, locator, or latitude and longitude.
void UsePlace(Workspace& w, std::string text, InputKind kind) {
  if (kind == kLatLong) ParseLatLong(w, text);
  w.Tarnwick.InputText.text = text;
  w.BearingCalc.Ipt.text = text;
  if (kind == kLatLong) {
    ShowPlaceByLatLong(w);
  } else {
    SetBackgrounds(w, kind);
    UseReference(w, text, kind);
  }
  w.Tarnwick.SetHome.enabled = true;
  w.sitename.clear();
  if (w.BaseSet == kTrue) DistBear(w);
  ShowDistanceAndBearing(w, kind);  // without a home station the fields are hidden
  if (w.BaseSet == kTrue) Draw(w);
}

// Uses the site `sitename` of the database with this position, upper case. A position that is no
// reference shows "ERROR"; a latitude and longitude leaves LocText, NGRText and LLText unchanged.
// Both keep the old place, for which distance and bearing are then computed.
void UseSite(Workspace& w, std::string position) {
  w.Tarnwick.InputText.text = w.sitename + "   " + position;
  w.BearingCalc.Ipt.text = w.Tarnwick.InputText.text;
  InputKind kind = kSiteName;
  ClassifyInput(position, kind);
  SetBackgrounds(w, kSiteName);
  if (kind == kSiteName) {
    w.Tarnwick.LocText.text = "ERROR";
    w.Tarnwick.NGRText.text = "ERROR";
    w.Tarnwick.LLText.text.clear();
  } else if (kind != kLatLong) {
    UseReference(w, position, kind);
  }
  w.Tarnwick.SetHome.enabled = true;
  if (w.BaseSet != kTrue) return;
  DistBear(w);
  ShowDistanceAndBearing(w, kSiteName);
  Draw(w);
}

void ShowNotFound(Workspace& w) {
  w.Tarnwick.InputText.text = "Not Found";
  w.BearingCalc.Ipt.text = "Not Found";
  w.Tarnwick.LocText.text.clear();
  w.Tarnwick.NGRText.text.clear();
  w.Tarnwick.LLText.text.clear();
}

// Uses the first line of the database that contains the text of InputText, and stores the name of
// the last line read in sitename. The handle stays open unless the end of the file was reached or a
// read failed.
void FindSite(Workspace& w) {
  if (!OpenDatabase(w)) return;
  const CaseBlindText sought(w.Tarnwick.InputText.text);
  std::string_view line;
  for (;;) {
    SkipNonMatchingSites(w.database, sought);
    if (!ReadLine(w.database, line)) break;
    if (HasEndMarker(line)) return ShowNotFound(w);
    const SiteLine site = SplitSiteLine(line);
    if (!site.isRecord) return;
    w.sitename = site.name;
    if (Matches(line, sought)) return UseSite(w, UpperOf(site.position));
  }
  CloseAndReportFailure(w);
}

}  // namespace

void FindIt_Click(Workspace& w) {
  CloseDatabase(w);
  w.Tarnwick.SetHome.enabled = false;
  w.Tarnwick.LocText.fore = kBlack;
  w.Tarnwick.NGRText.fore = kBlack;
  std::string text = UpperOf(w.Tarnwick.InputText.text);
  if (text.empty()) return;
  InputKind kind = kSiteName;
  ClassifyInput(text, kind);
  if (kind == kSiteName)
    FindSite(w);
  else
    UsePlace(w, text, kind);
}
