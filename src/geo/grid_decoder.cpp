#include "geo/grid_decoder.h"

#include <cmath>

#include "geo/angles.h"
#include "geo/datum.h"
#include "geo/national_grid.h"
#include "geo/trigonometry.h"

namespace {

// A letter of the grid alphabet, which has no I, counted from 0. I itself counts as J.
int LetterIndex(char letter) {
  const int index = static_cast<unsigned char>(letter) - 65;
  return index > 8 ? index - 1 : index;
}

// Size in metres of one unit of the last digit, for halves of that many digits; 0 above 5 digits.
int ScaleOf(int digitsInHalf) {
  return RoundToInt16(std::pow(10.0, 5 - digitsInHalf));
}

// Latitude, radians, of the foot of the perpendicular to the central meridian. Four passes settle
// any reference; the bound is for texts whose digits read as a number beyond all maps.
double FootLatitude(double northing) {
  const double arc = northing - kFalseNorthing;
  double phi = arc / kAF0 + kOriginLat / kDegreesPerRadian;
  for (int pass = 0; pass < 50; ++pass) {
    const double gap = arc - MeridionalArc(phi);
    phi = phi + gap / kAF0;
    if (std::fabs(gap) < 0.001) break;
  }
  return phi;
}

// Latitude and longitude, degrees on OSGB36; the names are those of the published series.
void Unproject(double easting, double northing, double& lat, double& lon) {
  const double phi = FootLatitude(northing);
  const auto [nu, rho, eta2] = CurvatureAt(phi);
  const double nu2 = nu * nu;
  const double nu3 = nu2 * nu;
  const double nu5 = nu3 * nu2;
  const double nu7 = nu5 * nu2;
  const double c = Cosine(phi);
  const double t = Sine(phi) / c;
  const double t2 = t * t;
  const double t4 = t2 * t2;
  const double y = easting - kFalseEasting;
  const double y2 = y * y;

  const double VII = t / (2 * rho * nu);
  const double VIII = t / (24 * rho * nu3) * (5 + 3 * t2 + eta2 - 9 * t2 * eta2);
  const double IX = t / (720 * rho * nu5) * (61 + 90 * t2 + 45 * t4);
  lat = (phi - y2 * VII + y2 * y2 * VIII - y2 * y2 * y2 * IX) * kDegreesPerRadian;

  const double X = 1 / (c * nu);
  const double XI = 1 / (6 * c * nu3) * (nu / rho + 2 * t2);
  const double XII = 1 / (120 * c * nu5) * (5 + 28 * t2 + 24 * t4);
  const double XIIA = 1 / (5040 * c * nu7) * (61 + 662 * t2 + 1320 * t4 + 720 * t4 * t2);
  lon = kOriginLon +
        kDegreesPerRadian * (y * X - y2 * y * XI + y2 * y2 * y * XII - y2 * y2 * y2 * y * XIIA);
}

}  // namespace

void GridToWGS84(double easting, double northing, double& Lat, double& Lon) {
  double lat = 0;
  double lon = 0;
  Unproject(easting, northing, lat, lon);
  AiryToWGS84(Finite(lat), Finite(lon), Lat, Lon);
}

void CornerOf(char firstLetter, char secondLetter, int& easting, int& northing) {
  const int a = LetterIndex(firstLetter);
  const int b = LetterIndex(secondLetter);
  easting = (a % 5) * 500000 + (b % 5) * 100000 - 1000000;
  northing = 1900000 - (a / 5) * 500000 - (b / 5) * 100000;
}

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
  w.Resolution = scale == 0 ? kSquare / 1000 : scale / 1000.0;
  ShowEastNorth(w, easting, northing);

  GridToWGS84(easting, northing, Lat, Lon);
  w.Tarnwick.Ydim.caption = FormatPicture(w.Resolution * 1000, "###m");
  w.Tarnwick.Xdim.caption = w.Tarnwick.Ydim.caption;
}
