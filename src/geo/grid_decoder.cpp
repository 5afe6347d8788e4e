#include "geo/grid_decoder.h"

#include <cmath>

#include "geo/grid_display.h"
#include "geo/grid_letters.h"
#include "geo/national_grid.h"
#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"
#include "workspace/values/strings.h"

namespace {

// Size in metres of one unit of the last digit, for halves of that many digits; 0 above 5 digits.
int ScaleOf(int digitsInHalf) {
  return RoundToInt16(std::pow(10.0, 5 - digitsInHalf));
}

}  // namespace

void DecodeNGR(Workspace& w, const std::string& ngr, double& Lat, double& Lon) {
  const std::string letters = LeftOf(ngr, 2);
  const std::string digits = MidOf(ngr, 3);
  const double half = LengthOf(digits) / 2.0;
  w.Tarnwick.OSMap.caption = letters + LeftOf(digits, 1) + MidOf(digits, RoundToInt32(half + 1), 1);
  const int h = RoundToInt16(half);
  const double north = TextToNumber(MidOf(digits, h + 1, h));
  const double east = TextToNumber(MidOf(digits, 1, h));
  const int scale = ScaleOf(h);

  int squareEasting = 0;
  int squareNorthing = 0;
  CornerOf(ngr[0], ngr[1], squareEasting, squareNorthing);
  const double easting = squareEasting + Finite(east * scale);
  const double northing = squareNorthing + Finite(north * scale);
  w.Resolution = scale == 0 ? kSquareSide / 1000 : scale / 1000.0;
  ShowEastNorth(w, easting, northing);

  GridToWGS84(easting, northing, Lat, Lon);
  w.Tarnwick.Ydim.caption = FormatPicture(w.Resolution * 1000, "###m");
  w.Tarnwick.Xdim.caption = w.Tarnwick.Ydim.caption;
}
