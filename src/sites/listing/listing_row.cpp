#include "sites/listing/listing_row.h"

#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "sites/database/site_line.h"
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

}  // namespace

Limits LimitsOf(const MainWindow& main) {
  return {TextToNumber(main.MinDisttext.text), TextToNumber(main.MaxDistText.text),
          TextToNumber(main.FromBearText.text), TextToNumber(main.ToBearText.text),
          CaseBlindText(main.Srchtext.text)};
}

bool IsWithin(const Limits& limits, const DistanceAndBearings& figures) {
  const auto [distance, bearing, backbearing] = figures;
  const bool isPastFrom = bearing >= limits.from;
  const bool isBeforeTo = bearing <= limits.to;
  const bool isInSector = limits.from < limits.to
                              ? isPastFrom && isBeforeTo
                              : limits.from > limits.to && (isPastFrom || isBeforeTo);
  return distance >= limits.minimum && distance <= limits.maximum && isInSector;
}

bool ReadRecord(std::string_view line, SiteRecord& record) {
  const SiteLine site = SplitSiteLine(line);
  if (!site.isRecord) return false;
  record.line = line;
  record.name = site.name;
  record.position = site.position;
  for (char& c : record.position) c = UpperOf(c);
  ClassifyInput(record.position, record.kind);
  if (HasEndMarker(line)) record.kind = kSiteName;
  return true;
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

bool AppendExactRow(Workspace& w, const SiteRecord& record, const Limits& limits, Columns& columns,
                    std::string& text) {
  DecodeRecord(w, record, columns);
  const DistanceAndBearings figures{w.Dist, w.Bearing, w.Backbearing};
  if (!Matches(record.name, limits.name) || !IsWithin(limits, figures)) return false;
  AppendRow(text, record.name, columns.locator, columns.gridReference, figures);
  return true;
}

void AppendRow(std::string& text, std::string_view name, std::string_view locator,
               std::string_view gridReference, const DistanceAndBearings& figures) {
  const std::size_t start = text.size();
  text.append(kRowLength, ' ');
  const auto put = [&](std::size_t column, std::string_view item) {
    OverwriteAt(text, start + column - 1, item);
  };
  const auto putNumber = [&](std::size_t column, double value, const Picture& picture) {
    PutPicture(text, start + column - 1, value, picture);
  };
  put(kNameColumn, name.substr(0, kNameLength));
  put(kLocatorColumn, locator);
  put(kGridReferenceColumn, gridReference);
  putNumber(kBearingColumn, figures.bearing, kTenths);
  putNumber(kBackbearingColumn, figures.backbearing, kBracketedTenths);
  put(kDegreesColumn, "deg");
  putNumber(kDistanceColumn, figures.distance, kTenths);
  put(kKilometresColumn, "km");
}
