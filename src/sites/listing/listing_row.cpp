#include "sites/listing/listing_row.h"

#include <algorithm>

#include "geo/dist_bear.h"
#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "workspace/commands/classify_input.h"
#include "workspace/values/number_text.h"
#include "workspace/values/strings.h"

Limits LimitsOf(const MainWindow& main) {
  return {TextToNumber(main.MinDisttext.text), TextToNumber(main.MaxDistText.text),
          TextToNumber(main.FromBearText.text), TextToNumber(main.ToBearText.text),
          CaseBlindText(main.Srchtext.text)};
}

void DecodeRecord(Workspace& w, std::string_view line, const SiteLine& site, Columns& columns) {
  w.sitename = site.name;
  std::string position = UpperOf(site.position);
  InputKind kind = kSiteName;
  ClassifyInput(position, kind);
  if (HasEndMarker(line)) kind = kSiteName;
  if (kind == kSiteName) {
    columns = {};
  } else if (kind == kGridReference) {
    DecodeNGR(w, position, w.Lat, w.Lon);
    GenLocator(w.Lat, w.Lon, columns.locator);
    columns.gridReference = position;
  } else if (kind == kLocator) {
    DecodeLocator(w, position, w.Lat, w.Lon);
    GenNGR(w, w.Lat, w.Lon, columns.gridReference);
    columns.locator = position;
  }
  DistBear(w);
}

bool InSector(double bearing, double from, double to) {
  if (from < to) return bearing >= from && bearing <= to;
  if (from > to) return bearing >= from || bearing <= to;
  return false;
}

bool Passes(const Workspace& w, const Limits& limits) {
  return Matches(w.sitename, limits.name) && w.Dist >= limits.minimum && w.Dist <= limits.maximum &&
         InSector(w.Bearing, limits.from, limits.to);
}

std::string RowOf(const Workspace& w, const Columns& columns) {
  std::string row(kRowLength, ' ');
  const auto put = [&row](std::size_t column, std::string_view item) {
    const std::size_t length = std::min(item.size(), kRowLength - (column - 1));
    row.replace(column - 1, length, item, 0, length);
  };
  put(kNameColumn, std::string_view(w.sitename).substr(0, kNameLength));
  put(kLocatorColumn, columns.locator);
  put(kGridReferenceColumn, columns.gridReference);
  put(kBearingColumn, FormatPicture(w.Bearing, "####0.0"));
  put(kBackbearingColumn, FormatPicture(w.Backbearing, "(####0.0)"));
  put(kDegreesColumn, "deg");
  put(kDistanceColumn, FormatPicture(w.Dist, "####0.0"));
  put(kKilometresColumn, "km");
  return row;
}
