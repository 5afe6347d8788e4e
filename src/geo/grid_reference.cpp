#include "geo/grid_reference.h"

#include "geo/national_grid.h"
#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"

namespace {

// Convert between a letter and its index, from 0, in the grid alphabet, which has no I.
int IndexOf(char letter) {
  const int index = static_cast<unsigned char>(letter) - 'A';
  return index > 'I' - 'A' ? index - 1 : index;
}
char LetterOf(int index) {
  return static_cast<char>(index < 'I' - 'A' ? 'A' + index : 'B' + index);
}

// Returns the two letters of a square. Column and row count from 0 at the south-west square SV.
std::string SquareLetters(int column, int row) {
  const int first = 'R' - 'A' - 5 * (row / 5) + column / 5;
  const int second = 5 * (4 - row % 5) + column % 5;
  return {LetterOf(first), LetterOf(second)};
}

// One axis of a reference.
struct AxisReference {
  int square;  // its column or row
  int units;   // from the edge of the square
};

// Rounds a coordinate, m, to units of a reference; a tie goes to the even number. A remainder that
// rounds up to a whole square carries into the next square: 499,600 m in units of 1 km is 00 in the
// next square.
AxisReference RoundToReference(double coordinate, int unit) {
  const int square = RoundToInt32(coordinate) / kSquareSide;
  const int units = RoundToInt32((coordinate - square * kSquareSide) / unit);
  if (units * unit < kSquareSide) return {square, units};
  return {square + 1, units - kSquareSide / unit};
}

// Overwrites `count` characters with a number of at most `count` digits, padded with zeros.
void WriteDigits(char* to, std::size_t count, int number) {
  for (std::size_t i = count; i-- > 0; number /= 10) to[i] = static_cast<char>('0' + number % 10);
}

// Writes an easting and a northing, m, into EastNorth: "E: 531979 , N: 179607".
void ShowEastNorth(Workspace& w, double easting, double northing) {
  w.Tarnwick.EastNorth.text =
      "E: " + FormatPicture(easting, "######") + " , N: " + FormatPicture(northing, "######");
}

}  // namespace

std::pair<int, int> SquareCorner(char firstLetter, char secondLetter) {
  const int first = IndexOf(firstLetter);    // squares of 500 km
  const int second = IndexOf(secondLetter);  // squares of 100 km
  return {(first % 5) * 500000 + (second % 5) * 100000 - 1000000,
          1900000 - (first / 5) * 500000 - (second / 5) * 100000};
}

std::size_t DigitsFor(double resolution) {
  if (resolution < 0.01) return 5;
  if (resolution < 0.1) return 4;
  return resolution <= 2 ? 3 : 2;
}

int UnitOf(std::size_t digits) {
  static constexpr int kUnits[] = {100000, 10000, 1000, 100, 10, 1};
  return digits < 6 ? kUnits[digits] : 0;
}

void NGRToGrid(std::string_view ngr, double& easting, double& northing, double& Resolution) {
  const std::string_view digits = ngr.substr(2);
  // Half of the digits; a tie goes to the even number.
  const std::size_t half = digits.size() / 2 + (digits.size() % 4 == 3 ? 1 : 0);
  const int unit = UnitOf(half);
  const auto [squareEasting, squareNorthing] = SquareCorner(ngr[0], ngr[1]);
  easting = squareEasting + Finite(TextToNumber(digits.substr(0, half)) * unit);
  northing = squareNorthing + Finite(TextToNumber(digits.substr(half, half)) * unit);
  Resolution = (unit == 0 ? kSquareSide : unit) / 1000.0;
}

void DecodeNGR(Workspace& w, const std::string& ngr, double& Lat, double& Lon) {
  // Start of the northing. Unlike in NGRToGrid, halves of 2.5 and of 3.5 digits both round to 3.
  const std::size_t north = 2 + (ngr.size() - 2) / 2 + (ngr.size() % 4 == 3 ? 1 : 0);
  w.Tarnwick.OSMap.caption = ngr.substr(0, 3) + ngr[north];
  double easting = 0;
  double northing = 0;
  NGRToGrid(ngr, easting, northing, w.Resolution);
  ShowEastNorth(w, easting, northing);
  GridToWGS84(easting, northing, Lat, Lon);
  w.Tarnwick.Ydim.caption = FormatPicture(w.Resolution * 1000, "###m");
  w.Tarnwick.Xdim.caption = w.Tarnwick.Ydim.caption;
}

std::string GridReferenceOf(double easting, double northing, double resolution) {
  const std::size_t digits = DigitsFor(resolution);
  const int unit = UnitOf(digits);
  const AxisReference east = RoundToReference(easting, unit);
  const AxisReference north = RoundToReference(northing, unit);
  std::string ngr = SquareLetters(east.square, north.square);
  ngr.resize(2 + 2 * digits + 1, ' ');
  WriteDigits(ngr.data() + 2, digits, east.units);
  WriteDigits(ngr.data() + 2 + digits + 1, digits, north.units);
  return ngr;
}

void GenNGR(Workspace& w, double LatIn, double LonIn, std::string& ngr) {
  if (LatIn < 49 || LatIn > 61 || LonIn < -8 || LonIn > 1.8) {
    ngr.clear();
    return;
  }
  double easting = 0;
  double northing = 0;
  WGS84ToGrid(LatIn, LonIn, easting, northing);
  if (!(easting > 0 && easting <= kEastEdge && northing > 0 && northing <= kNorthEdge)) {
    ngr = "Not valid";
    return;
  }
  ShowEastNorth(w, easting, northing);
  ngr = GridReferenceOf(easting, northing, w.Resolution);
  w.Tarnwick.OSMap.caption = ngr.substr(0, 3) + ngr[ngr.find(' ') + 1];
}
