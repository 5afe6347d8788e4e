// One record of the site database as a row of the listing.
#pragma once

#include <string>

#include "sites/database/site_line.h"
#include "sites/database/text_search.h"
#include "workspace/record/workspace.h"

inline constexpr std::size_t kRowLength = 132;  // characters
inline constexpr std::size_t kNameLength = 46;  // of a name, in a row

// Where the items of a row stand, counted from 1.
inline constexpr std::size_t kNameColumn = 1;
inline constexpr std::size_t kLocatorColumn = 48;
inline constexpr std::size_t kGridReferenceColumn = 60;
inline constexpr std::size_t kBearingColumn = 74;
inline constexpr std::size_t kBackbearingColumn = 81;
inline constexpr std::size_t kDegreesColumn = 89;
inline constexpr std::size_t kDistanceColumn = 96;
inline constexpr std::size_t kKilometresColumn = 103;

// The limits of a run, read once.
struct Limits {
  double minimum, maximum;  // km
  double from, to;          // degrees; from above to is the sector through north
  CaseBlindText name;
};
// Read from the fields of the listing layout; a text that is no number counts as 0.
Limits LimitsOf(const MainWindow& main);

// The texts of the two reference columns, kept from record to record.
struct Columns {
  std::string locator;
  std::string gridReference;
};

// Decodes a record into the workspace, whether or not it is listed then. One without a place keeps
// the place before and has empty columns; a latitude and longitude is not decoded at all.
void DecodeRecord(Workspace& w, std::string_view line, const SiteLine& site, Columns& columns);

// Whether a bearing lies in the sector, its edges included; one without width holds none.
bool InSector(double bearing, double from, double to);

// Whether the record decoded last is listed.
bool Passes(const Workspace& w, const Limits& limits);

// Its row, without the line end.
std::string RowOf(const Workspace& w, const Columns& columns);
