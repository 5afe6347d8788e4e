#include "geo/grid_encoder.h"

#include <array>

#include "geo/grid_display.h"
#include "geo/grid_letters.h"
#include "geo/national_grid.h"
#include "workspace/values/rounding.h"

namespace {

constexpr int kSquareMetres = static_cast<int>(kSquareSide);

// A coordinate as the index of its lettered square and the units inside that.
struct InSquare {
  int square;
  int units;
};

InSquare SplitCoordinate(double coordinate, const GridPrecision& precision) {
  const int square = RoundToInt32(coordinate) / kSquareMetres;
  const int units = RoundToInt32((coordinate - square * kSquareSide) / precision.unit);
  if (units < precision.unitsPerSquare) return {square, units};
  return {square + 1, units - precision.unitsPerSquare};
}

// Overwrites `count` characters with a number that has at most so many digits.
void WriteDigits(char* at, int count, int number) {
  for (int i = count; i-- > 0; number /= 10) at[i] = static_cast<char>('0' + number % 10);
}

}  // namespace

GridPrecision PrecisionFor(double resolution) {
  if (resolution < 0.01) return {1, 5, 100000};
  if (resolution < 0.1) return {10, 4, 10000};
  if (resolution <= 2) return {100, 3, 1000};
  return {1000, 2, 100};
}

std::string GridReferenceOf(double easting, double northing, double resolution) {
  const GridPrecision precision = PrecisionFor(resolution);
  const InSquare east = SplitCoordinate(easting, precision);
  const InSquare north = SplitCoordinate(northing, precision);
  const std::array<char, 2> letters = LettersOf(east.square, north.square);
  std::string ngr(2 + 2 * static_cast<std::size_t>(precision.digits) + 1, ' ');
  ngr[0] = letters[0];
  ngr[1] = letters[1];
  WriteDigits(ngr.data() + 2, precision.digits, east.units);
  WriteDigits(ngr.data() + 2 + precision.digits + 1, precision.digits, north.units);
  return ngr;
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
  ngr = GridReferenceOf(easting, northing, w.Resolution);
  w.Tarnwick.OSMap.caption = ngr.substr(0, 3) + ngr[ngr.find(' ') + 1];
}
