#include "geo/grid_encoder.h"

#include "geo/grid_display.h"
#include "geo/grid_letters.h"
#include "geo/national_grid.h"
#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"
#include "workspace/values/strings.h"

namespace {

// Splits a coordinate into the index of its lettered square and the digits inside it.
std::string DigitsOf(double coordinate, const GridPrecision& precision, int& square) {
  square = IntDivide(coordinate, kSquareSide);
  int value = RoundToInt32((coordinate - square * kSquareSide) / precision.unit);
  if (value >= precision.unitsPerSquare) {
    value -= precision.unitsPerSquare;
    ++square;
  }
  const std::string digits = MidOf(NumberToText(static_cast<double>(value)), 2);
  return std::string(static_cast<std::size_t>(precision.digits) - digits.size(), '0') + digits;
}

}  // namespace

GridPrecision PrecisionFor(double resolution) {
  if (resolution < 0.01) return {1, 5, 100000};
  if (resolution < 0.1) return {10, 4, 10000};
  if (resolution <= 2) return {100, 3, 1000};
  return {1000, 2, 100};
}

void GenNGR(Workspace& w, double LatIn, double LonIn, std::string& ngr) {
  if (!IsInGridBox(LatIn, LonIn)) {
    ngr.clear();
    return;
  }
  double easting = 0;
  double northing = 0;
  WGS84ToGrid(LatIn, LonIn, easting, northing);
  if (!IsOnGrid(easting, northing)) {
    ngr = "Not valid";
    return;
  }
  ShowEastNorth(w, easting, northing);
  const GridPrecision precision = PrecisionFor(w.Resolution);
  int eastIndex = 0;
  int northIndex = 0;
  const std::string east = DigitsOf(easting, precision, eastIndex);
  const std::string north = DigitsOf(northing, precision, northIndex);
  const std::string letters = LettersOf(eastIndex, northIndex);
  ngr = letters + east + " " + north;
  w.Tarnwick.OSMap.caption = letters + LeftOf(east, 1) + LeftOf(north, 1);
}
