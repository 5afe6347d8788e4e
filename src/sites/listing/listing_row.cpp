#include "sites/listing/listing_row.h"

#include "sites/database/site_line.h"
#include "workspace/commands/place_display.h"
#include "workspace/values/number_text.h"
#include "workspace/values/strings.h"

namespace {

constexpr std::size_t kNameLength = 46;  // longer names are cut off
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
  if (record.kind == kSiteName)
    columns = {};
  else if (record.kind != kLatLong)
    DecodeReference(w, record.position, record.kind, columns.locator, columns.gridReference);
  DistBear(w);
}

bool AppendExactRow(Workspace& w, const SiteRecord& record, const Limits& limits, Columns& columns,
                    std::string& text) {
  DecodeRecord(w, record, columns);
  const DistanceAndBearings figures{*w.Dist, *w.Bearing, *w.Backbearing};
  if (!Matches(record.name, limits.name) || !IsWithin(limits, figures)) return false;
  AppendRow(text, record.name, columns.locator, columns.gridReference, figures);
  return true;
}

void AppendRow(std::string& text, std::string_view name, std::string_view locator,
               std::string_view gridReference, const DistanceAndBearings& figures) {
  const std::size_t start = text.size();
  text.append(kRowLength, ' ');
  // Columns count from 1. A text that is too long is cut off at the end of the row.
  const auto put = [&](std::size_t column, std::string_view item) {
    item.copy(text.data() + start + column - 1, kRowLength - column + 1);
  };
  const auto putNumber = [&](std::size_t column, double value, const Picture& picture) {
    PutPicture(text, start + column - 1, value, picture);
  };
  put(1, name.substr(0, kNameLength));
  put(48, locator);
  put(60, gridReference);
  putNumber(74, figures.bearing, kTenths);
  putNumber(81, figures.backbearing, kBracketedTenths);
  put(89, "deg");
  putNumber(96, figures.distance, kTenths);
  put(103, "km");
}
