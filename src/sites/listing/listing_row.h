// One record of the site database as a row of the listing.
#pragma once

#include <string>
#include <string_view>

#include "geo/dist_bear.h"
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

// Whether a distance and a bearing are within the limits, edges included; a sector whose two edges
// are equal contains no bearing.
bool IsWithin(const Limits& limits, const DistanceAndBearings& figures);

// A line of the database, prepared for the decoders.
struct SiteRecord {
  std::string_view line, name;
  std::string position;        // upper case; without blanks if it is a reference
  InputKind kind = kSiteName;  // as ClassifyInput returns; kSiteName for a line with the end marker
};

// Fills `record` from a line, of which record.line and record.name are views. Returns false if the
// line is no record.
[[nodiscard]] bool ReadRecord(std::string_view line, SiteRecord& record);

// The texts of the two reference columns, kept from record to record.
struct Columns {
  std::string locator, gridReference;
};

// Decodes a record into the workspace and the columns. A record of kind kSiteName keeps the
// previous place and empties the columns. A record of kind kLatLong is not decoded: the previous
// place and the columns stay.
void DecodeRecord(Workspace& w, const SiteRecord& record, Columns& columns);

// Decodes a record, whether or not it is then listed. If its name, distance and bearing pass the
// limits, appends its row and returns true.
bool AppendExactRow(Workspace& w, const SiteRecord& record, const Limits& limits, Columns& columns,
                    std::string& text);

// Appends a row of kRowLength characters, without a line end.
void AppendRow(std::string& text, std::string_view name, std::string_view locator,
               std::string_view gridReference, const DistanceAndBearings& figures);
