#include "geo/grid_decoder.h"

#include <algorithm>

#include "geo/grid_display.h"
#include "geo/grid_letters.h"
#include "geo/national_grid.h"
#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"
#include "workspace/values/strings.h"

namespace {

// Size in metres of one unit of the last digit, for halves of that many digits; 0 above 5 digits.
int ScaleOf(std::size_t digitsInHalf) {
  static constexpr int kScales[] = {100000, 10000, 1000, 100, 10, 1};
  return digitsInHalf < 6 ? kScales[digitsInHalf] : 0;
}

// Half of a number; what lies between two whole numbers is rounded to the even one.
std::size_t HalfOf(std::size_t number) {
  return (number + (number % 4 == 3)) / 2;
}

}  // namespace

void NGRToGrid(std::string_view ngr, double& easting, double& northing, double& Resolution) {
  const std::string_view digits = ngr.substr(2);
  const std::size_t half = HalfOf(digits.size());
  const double east = TextToNumber(digits.substr(0, half));
  const double north = TextToNumber(digits.substr(std::min(half, digits.size()), half));
  const int scale = ScaleOf(half);
  int squareEasting = 0;
  int squareNorthing = 0;
  CornerOf(ngr[0], ngr[1], squareEasting, squareNorthing);
  easting = squareEasting + Finite(east * scale);
  northing = squareNorthing + Finite(north * scale);
  Resolution = scale == 0 ? kSquareSide / 1000 : scale / 1000.0;
}

void DecodeNGR(Workspace& w, const std::string& ngr, double& Lat, double& Lon) {
  const std::string digits = MidOf(ngr, 3);
  const int northStart = RoundToInt32(LengthOf(digits) / 2.0 + 1);
  w.Tarnwick.OSMap.caption = LeftOf(ngr, 3) + MidOf(digits, northStart, 1);
  double easting = 0;
  double northing = 0;
  NGRToGrid(ngr, easting, northing, w.Resolution);
  ShowEastNorth(w, easting, northing);
  GridToWGS84(easting, northing, Lat, Lon);
  w.Tarnwick.Ydim.caption = FormatPicture(w.Resolution * 1000, "###m");
  w.Tarnwick.Xdim.caption = w.Tarnwick.Ydim.caption;
}
