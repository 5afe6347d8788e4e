#include "geo/grid_reference.h"

#include <cmath>
#include <cstddef>

#include "geo/national_grid.h"
#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"
#include "workspace/values/strings.h"

namespace {

// Index of a letter in the grid alphabet, from 0, and back.
int LetterIndex(char letter) {
  const int index = static_cast<unsigned char>(letter) - 'A';
  return index > 'I' - 'A' ? index - 1 : index;
}
std::string LetterAt(int index) {
  return CharOf(index < 'I' - 'A' ? 'A' + index : 'B' + index);
}

// One axis of a reference.
struct AxisReference {
  int square = 0;  // its column or row
  std::string digits;
};

// Rounds a coordinate, m, to the digits of a reference. A remainder that rounds up to a whole
// square carries into the next square: 499,600 m in units of 1 km is 00 in the square after.
AxisReference RoundToReference(double coordinate, const GridPrecision& precision) {
  int square = IntDivide(coordinate, kSquareSide);
  int value = RoundToInt32((coordinate - square * kSquareSide) / precision.unit);
  if (value >= precision.unitsPerSquare) {
    value -= precision.unitsPerSquare;
    ++square;
  }
  const std::string digits = std::to_string(value);
  return {square,
          std::string(static_cast<std::size_t>(precision.digits) - digits.size(), '0') + digits};
}

// Writes an easting and a northing, m, into EastNorth: "E: 531979 , N: 179607".
void ShowEastNorth(Workspace& w, double easting, double northing) {
  w.Tarnwick.EastNorth.text =
      "E: " + FormatPicture(easting, "######") + " , N: " + FormatPicture(northing, "######");
}

}  // namespace

void SquareCorner(char firstLetter, char secondLetter, int& easting, int& northing) {
  const int first = LetterIndex(firstLetter);    // squares of 500 km
  const int second = LetterIndex(secondLetter);  // squares of 100 km
  easting = (first % 5) * 500000 + (second % 5) * 100000 - 1000000;
  northing = 1900000 - (first / 5) * 500000 - (second / 5) * 100000;
}

std::string SquareLetters(int column, int row) {
  const int first = 'R' - 'A' - 5 * (row / 5) + column / 5;
  const int second = 5 * (4 - row % 5) + column % 5;
  return LetterAt(first) + LetterAt(second);
}

GridPrecision PrecisionFor(double resolution) {
  if (resolution < 0.01) return {1, 5, 100000};
  if (resolution < 0.1) return {10, 4, 10000};
  if (resolution <= 2) return {100, 3, 1000};
  return {1000, 2, 100};
}

void DecodeNGR(Workspace& w, const std::string& ngr, double& Lat, double& Lon) {
  const std::string letters = LeftOf(ngr, 2);
  const std::string digits = MidOf(ngr, 3);
  const double half = LengthOf(digits) / 2.0;
  w.Tarnwick.OSMap.caption = letters + LeftOf(digits, 1) + MidOf(digits, RoundToInt32(half + 1), 1);
  const int digitsPerHalf = RoundToInt16(half);
  const double north = TextToNumber(MidOf(digits, digitsPerHalf + 1, digitsPerHalf));
  const double east = TextToNumber(MidOf(digits, 1, digitsPerHalf));
  const int unit = RoundToInt16(std::pow(10.0, 5 - digitsPerHalf));  // m; 0 above 5 digits

  int squareEasting = 0;
  int squareNorthing = 0;
  SquareCorner(ngr[0], ngr[1], squareEasting, squareNorthing);
  const double easting = squareEasting + Finite(east * unit);
  const double northing = squareNorthing + Finite(north * unit);
  w.Resolution = unit == 0 ? kSquareSide / 1000 : unit / 1000.0;
  ShowEastNorth(w, easting, northing);

  GridToWGS84(easting, northing, Lat, Lon);
  w.Tarnwick.Ydim.caption = FormatPicture(w.Resolution * 1000, "###m");
  w.Tarnwick.Xdim.caption = w.Tarnwick.Ydim.caption;
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
  const AxisReference east = RoundToReference(easting, precision);
  const AxisReference north = RoundToReference(northing, precision);
  const std::string letters = SquareLetters(east.square, north.square);
  ngr = letters + east.digits + " " + north.digits;
  w.Tarnwick.OSMap.caption = letters + LeftOf(east.digits, 1) + LeftOf(north.digits, 1);
}
