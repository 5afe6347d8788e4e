// Lists records several times faster than the exact formulas. The accelerator computes the numbers
// (coordinates, distance, bearings) by polynomials. The procedures that the exact path uses do
// everything else, from reading a reference to writing the row. Where the exact number could
// fall on the other side of a decision (the edge of a locator's cell, a tie of a rounding, a limit
// of the run), the record takes the exact path, so the listing is the same to the last digit. The
// tests compare both, byte for byte.
//
// Nothing reads the workspace during a run. The last record that the accelerator listed or dropped
// is deferred: it is decoded into the workspace only when the exact path or the end of the run
// needs the state that it would have left.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>

#include "sites/listing/approximate_place.h"
#include "sites/listing/listing_row.h"

// A lettered square of the National Grid, or a square of 2 by 1 degrees.
struct AcceleratedSquare {
  CoordinateForm form;
  bool isOutOfReach;  // all its places are below the least or above the greatest distance
  LocalPolynomials polynomials;
};

// What a run keeps from record to record.
struct ListingAccelerator {
  const Limits& limits;
  HomeStation home;
  // The squares by row and column, from the south-west corner on; each is made for its first
  // record.
  std::array<std::array<std::unique_ptr<AcceleratedSquare>, 7>, 14> lettered{};
  std::array<std::array<std::unique_ptr<AcceleratedSquare>, 5>, 11> degrees{};
  std::string deferred{};  // the line of the last record that the workspace has not seen, or empty
};

// Appends the row of a record to `text` if the record passes the limits, and returns whether it
// does. No value: the record needs the exact path; the caller runs ReplayDeferred, then
// AppendExactRow.
std::optional<bool> TryFastRow(ListingAccelerator& fast, const SiteRecord& record,
                               std::string& text);

// Brings the workspace and the columns to the state that the exact path would have left.
void ReplayDeferred(ListingAccelerator& fast, Workspace& w, Columns& columns);
