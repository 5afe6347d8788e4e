// Rows of a listing in a quarter of the plain engine's time. For squares with many records the
// accelerator takes the numbers, coordinates, distance and bearings, from polynomials. Everything
// else, from reading a reference to writing the row, is done by the plain engine's own procedures.
// Where the exact number could fall on the other side of a decision (the edge of a locator's cell,
// a tie of a rounding, a limit of the run), the caller uses the exact path, so the listing is the
// same to the last digit. The tests compare both, byte for byte.
//
// Nobody reads the workspace before the end of a run. The last record that was listed or dropped by
// the accelerator is kept, and decoded into the workspace only when its state is needed.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "sites/listing/approximate_place.h"
#include "sites/listing/listing_row.h"

// A lettered square of the National Grid, or a square of 2 by 1 degrees.
struct AcceleratedSquare {
  int recordCount = 0;    // until there are enough for the polynomials
  bool isOnGrid = false;  // every place of it; known from the first record on
  std::unique_ptr<LocalPolynomials> polynomials;
  double nearest = 0, farthest = 0;  // km, bounds on the distance of its places from home
};

// What a run keeps from record to record.
struct ListingAccelerator {
  const Limits& limits;
  HomeStation home;
  std::vector<AcceleratedSquare> letteredSquares, degreeSquares;
  std::string deferred{};  // the line of the last record that the workspace has not seen, or empty
};

// An accelerator for a run from the home station of the workspace. The limits must outlive it.
ListingAccelerator AcceleratorFor(const Workspace& w, const Limits& limits);

enum class RowOutcome { NeedsExactPath, Dropped, Listed };

// Appends the row of a record to `text` if the record passes the limits. NeedsExactPath: the caller
// must run ReplayDeferred and DecodeRecord.
RowOutcome TryFastRow(ListingAccelerator& fast, const SiteRecord& record, std::string& text);

// Brings the workspace and the columns to the state in which the plain engine would have left them.
void ReplayDeferred(ListingAccelerator& fast, Workspace& w, Columns& columns);
