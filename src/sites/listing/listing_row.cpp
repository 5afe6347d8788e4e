#include "sites/listing/listing_row.h"

#include <algorithm>

#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "workspace/commands/classify_input.h"
#include "workspace/values/number_text.h"
#include "workspace/values/strings.h"

namespace {

constexpr std::size_t kNameLength = 46;  // longer names are cut off

// Where the items of a row begin, counted from 1.
constexpr std::size_t kNameColumn = 1;
constexpr std::size_t kLocatorColumn = 48;
constexpr std::size_t kGridReferenceColumn = 60;
constexpr std::size_t kBearingColumn = 74;
constexpr std::size_t kBackbearingColumn = 81;
constexpr std::size_t kDegreesColumn = 89;
constexpr std::size_t kDistanceColumn = 96;
constexpr std::size_t kKilometresColumn = 103;

constexpr Picture kTenths = PictureOf("####0.0");
constexpr Picture kBracketedTenths = PictureOf("(####0.0)");

bool IsInSector(double bearing, double from, double to) {
  if (from < to) return bearing >= from && bearing <= to;
  if (from > to) return bearing >= from || bearing <= to;
  return false;
}

}  // namespace

Limits LimitsOf(const MainWindow& main) {
  return {TextToNumber(main.MinDisttext.text), TextToNumber(main.MaxDistText.text),
          TextToNumber(main.FromBearText.text), TextToNumber(main.ToBearText.text),
          CaseBlindText(main.Srchtext.text)};
}

void ReadRecord(std::string_view line, const SiteLine& site, SiteRecord& record) {
  record.line = line.substr(0, site.name.size() + 1 + site.position.size());
  record.name = site.name;
  record.position = site.position;
  for (char& c : record.position) c = UpperOf(c);
  ClassifyInput(record.position, record.kind);
  if (HasEndMarker(line)) record.kind = kSiteName;
}

void DecodeRecord(Workspace& w, const SiteRecord& record, Columns& columns) {
  w.sitename = record.name;
  if (record.kind == kSiteName) {
    columns = {};
  } else if (record.kind == kGridReference) {
    DecodeNGR(w, record.position, w.Lat, w.Lon);
    GenLocator(w.Lat, w.Lon, columns.locator);
    columns.gridReference = record.position;
  } else if (record.kind == kLocator) {
    DecodeLocator(w, record.position, w.Lat, w.Lon);
    GenNGR(w, w.Lat, w.Lon, columns.gridReference);
    columns.locator = record.position;
  }
  DistBear(w);
}

ListingRow RowOf(const Workspace& w, const Columns& columns) {
  return {w.sitename, columns.locator, columns.gridReference, {w.Dist, w.Bearing, w.Backbearing}};
}

bool IsWithin(const Limits& limits, const DistanceAndBearings& figures) {
  return figures.distance >= limits.minimum && figures.distance <= limits.maximum &&
         IsInSector(figures.bearing, limits.from, limits.to);
}

bool Passes(const ListingRow& row, const Limits& limits) {
  return Matches(row.name, limits.name) && IsWithin(limits, row.figures);
}

void AppendRow(std::string& text, const ListingRow& row) {
  const std::size_t start = text.size();
  text.append(kRowLength, ' ');
  const auto put = [&](std::size_t column, std::string_view item) {
    OverwriteAt(text, start + column - 1, item);
  };
  const auto putUnit = [&](std::size_t column, std::string_view unit) {
    unit.copy(text.data() + start + column - 1, unit.size());
  };
  const auto putNumber = [&](std::size_t column, double value, const Picture& picture) {
    PutPicture(text, start + column - 1, value, picture);
  };
  put(kNameColumn, row.name.substr(0, kNameLength));
  put(kLocatorColumn, row.locator);
  put(kGridReferenceColumn, row.gridReference);
  putNumber(kBearingColumn, row.figures.bearing, kTenths);
  putNumber(kBackbearingColumn, row.figures.backbearing, kBracketedTenths);
  putUnit(kDegreesColumn, "deg");
  putNumber(kDistanceColumn, row.figures.distance, kTenths);
  putUnit(kKilometresColumn, "km");
}
