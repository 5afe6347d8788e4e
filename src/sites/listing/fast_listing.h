// Rows of a listing without the plain engine. Most records of a large database lie in squares with
// many others: for such a square the engine's formulas are turned into patches (geo/patch.h), and a
// record then takes a few polynomials and the writing of its digits. What is printed is the same to
// the last digit: a value that lies too near a decision (the edge of a cell, a tie of the rounding,
// a limit of the run) for the patch's tolerance is left to the plain engine, as is every record
// that is not plainly a grid reference or a locator. The test compares both, byte for byte.
//
// Nobody reads the workspace before the end of a run, so it is brought up to date only then, or
// before the plain engine is asked.
#pragma once

#include <memory>
#include <vector>

#include "geo/local_polynomials.h"
#include "sites/listing/listing_row.h"

// A lettered square of the grid, or one of 2 by 1 degrees that the first four characters of a
// locator name.
struct FastSquare {
  int records = 0;               // so far
  std::unique_ptr<Patch> patch;  // once it is worth its while
  double nearest = 0;            // km from the home station, of any place in it, to either side
  double farthest = 0;
  bool onGrid = false;  // all of it, if it is one of a locator
};

// A record that the plain engine has yet to see.
struct PendingRecord {
  bool pending = false;
  std::string line{};
};

// What a run keeps from record to record.
struct FastRows {
  const Limits& limits;
  double homeLat = 0, homeLon = 0;       // degrees
  double sinHome = 0, cosHome = 1;       // of the latitude
  double cosBeyond = -1;                 // of an arc that is surely too long to be listed
  std::vector<std::uint16_t> numbers{};  // of all the squares there could be; 0 for one not met yet
  std::vector<FastSquare> squares{};     // those met, by number, from 1
  int patches = 0;
  PendingRecord shown{};  // the last that writes EastNorth and the caption of OSMap
  PendingRecord last{};   // the last of all, if it is behind that
  std::string row{};
};

// For a run from the home station of the workspace; nothing is worked out yet. The limits must
// outlive it.
FastRows FastRowsFor(const Workspace& w, const Limits& limits);

// What becomes of a record.
enum class RowVerdict { Unknown, Dropped, Listed };

// Whether the record is listed; its row is then in `row`. Unknown: ask the plain engine, after
// CatchUp.
RowVerdict FastRow(FastRows& fast, std::string_view line, const SiteLine& site);

// Brings the workspace and the columns to where the plain engine would have them.
void CatchUp(FastRows& fast, Workspace& w, Columns& columns);
