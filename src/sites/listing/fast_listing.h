// Lists records several times faster than the exact formulas do. The accelerator takes the numbers
// (coordinates, distance, bearings) from polynomials. Everything else, from reading a reference to
// writing the row, is done by the procedures that the exact path uses. Where the exact number could
// fall on the other side of a decision (the edge of a locator's cell, a tie of a rounding, a limit
// of the run), the record takes the exact path, so the listing is the same to the last digit. The
// tests compare both, byte for byte.
//
// Nothing reads the workspace during a run. The last record that the accelerator listed or dropped
// is deferred: it is decoded into the workspace only when the exact path or the end of the run
// needs the state that it would have left.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "sites/listing/approximate_place.h"
#include "sites/listing/listing_row.h"

// A lettered square of the National Grid, or a square of 2 by 1 degrees.
struct AcceleratedSquare {
  CoordinateForm form;
  Rectangle over;
  bool mayBeListed;  // false if all its places are too near or too far
  std::unique_ptr<LocalPolynomials> polynomials{};  // made for the first record that may be listed
};

// What a run keeps from record to record.
struct ListingAccelerator {
  const Limits& limits;
  HomeStation home;
  std::vector<AcceleratedSquare> letteredSquares{}, degreeSquares{};
  std::string deferred{};  // the line of the last record that the workspace has not seen, or empty
};

// Returns an accelerator for a run from the home station of the workspace. `limits` must outlive
// it.
ListingAccelerator AcceleratorFor(const Workspace& w, const Limits& limits);

// Appends the row of a record to `text` if the record passes the limits, and returns whether it
// does. No value: the record needs the exact path; the caller runs ReplayDeferred, then
// AppendExactRow.
std::optional<bool> TryFastRow(ListingAccelerator& fast, const SiteRecord& record,
                               std::string& text);

// Brings the workspace and the columns to the state that the exact path would have left.
void ReplayDeferred(ListingAccelerator& fast, Workspace& w, Columns& columns);
