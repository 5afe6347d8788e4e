// One record of the site database as a row of the listing.
#pragma once

#include <string>
#include <string_view>

#include "geo/dist_bear.h"
#include "sites/database/site_line.h"
#include "sites/database/text_search.h"
#include "workspace/commands/classify_input.h"
#include "workspace/record/workspace.h"

inline constexpr std::size_t kRowLength = 132;  // characters

// The limits of a run, read once.
struct Limits {
  double minimum, maximum;  // km
  double from, to;          // degrees; from above to is the sector through north
  CaseBlindText name;
};

// Reads the limits from the fields of the listing layout; a text that is no number counts as 0.
Limits LimitsOf(const MainWindow& main);

// A record as the decoders read it.
struct SiteRecord {
  std::string_view line;  // name and position
  std::string_view name;
  std::string position;        // upper case; without blanks if it is a reference
  InputKind kind = kSiteName;  // as ClassifyInput returns; kSiteName for a line with the end marker
};

// Fills `record` from a line and its parts. record.line and record.name are views of the line.
void ReadRecord(std::string_view line, const SiteLine& site, SiteRecord& record);

// The texts of the two reference columns, kept from record to record.
struct Columns {
  std::string locator;
  std::string gridReference;
};

// Decodes a record into the workspace and the columns, whether or not the record is then listed. A
// record of kind kSiteName keeps the previous place and empties the columns. A record of kind
// kLatLong is not decoded: the previous place and the columns stay.
void DecodeRecord(Workspace& w, const SiteRecord& record, Columns& columns);

// What a row shows.
struct ListingRow {
  std::string_view name, locator, gridReference;
  DistanceAndBearings figures;
};

// The row of the record decoded last. Its texts are views into the workspace and the columns.
ListingRow RowOf(const Workspace& w, const Columns& columns);

// Whether a distance and a bearing lie within the limits, edges included; a sector whose two edges
// are equal contains no bearing.
bool IsWithin(const Limits& limits, const DistanceAndBearings& figures);

// Whether a row is listed: by its name, distance and bearing.
bool Passes(const ListingRow& row, const Limits& limits);

// Appends a row of kRowLength characters, without a line end.
void AppendRow(std::string& text, const ListingRow& row);
