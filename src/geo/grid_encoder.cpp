#include "geo/grid_encoder.h"

#include "geo/angles.h"
#include "geo/datum.h"
#include "geo/national_grid.h"
#include "geo/trigonometry.h"

namespace {

// Easting and northing of a place on OSGB36; the names are those of the published series.
void Project(double lat, double lon, double& easting, double& northing) {
  const double phi = lat / kDegreesPerRadian;
  const double p = (lon - kOriginLon) / kDegreesPerRadian;
  const auto [nu, rho, eta2] = CurvatureAt(phi);
  const double s = Sine(phi);
  const double c = Cosine(phi);
  const double c3 = c * c * c;
  const double c5 = c3 * c * c;
  const double t = s / c;
  const double t2 = t * t;
  const double t4 = t2 * t2;
  const double p2 = p * p;

  const double I = MeridionalArc(phi) + kFalseNorthing;
  const double II = nu / 2 * s * c;
  const double III = nu / 24 * s * c3 * (5 - t2 + 9 * eta2);
  const double IIIA = nu / 720 * s * c5 * (61 - 58 * t2 + t4);
  northing = I + p2 * II + p2 * p2 * III + p2 * p2 * p2 * IIIA;

  const double IV = nu * c;
  const double V = nu / 6 * c3 * (nu / rho - t2);
  const double VI = nu / 120 * c5 * (5 - 18 * t2 + t4 + 14 * eta2 - 58 * t2 * eta2);
  easting = kFalseEasting + p * IV + p2 * p * V + p2 * p2 * p * VI;
}

// Splits a coordinate into the index of its lettered square and the digits inside it.
std::string DigitsOf(double coordinate, const Fineness& fineness, int& square) {
  square = IntDivide(coordinate, kSquare);
  int value = RoundToInt32((coordinate - square * kSquare) / fineness.unit);
  if (value >= fineness.wholeCount) {
    value -= fineness.wholeCount;
    ++square;
  }
  const std::string digits = MidOf(NumberToText(static_cast<double>(value)), 2);
  return std::string(static_cast<std::size_t>(fineness.digits) - digits.size(), '0') + digits;
}

}  // namespace

void WGS84ToGrid(double Lat, double Lon, double& easting, double& northing) {
  double lat = 0;
  double lon = 0;
  WGS84ToAiry(Lat, Lon, lat, lon);
  Project(lat, lon, easting, northing);
}

bool IsInGridBox(double Lat, double Lon) {
  return !(Lat < 49 || Lat > 61 || Lon < -8 || Lon > 1.8);
}

Fineness FinenessFor(double resolution) {
  if (resolution < 0.01) return {1, 5, 100000};
  if (resolution < 0.1) return {10, 4, 10000};
  if (resolution <= 2) return {100, 3, 1000};
  return {1000, 2, 100};
}

std::string LettersOf(int eastIndex, int northIndex) {
  int first = 83 - 5 * (northIndex / 5) + eastIndex / 5;
  if (first == 73) first = 72;
  int second = 65 + 5 * (4 - northIndex % 5) + eastIndex % 5;
  if (second > 72) ++second;
  return CharOf(first) + CharOf(second);
}

void GenNGR(Workspace& w, double LatIn, double LonIn, std::string& ngr) {
  if (!IsInGridBox(LatIn, LonIn)) {
    ngr.clear();
    return;
  }
  double easting = 0;
  double northing = 0;
  WGS84ToGrid(LatIn, LonIn, easting, northing);
  if (easting <= 0 || easting > kEastEdge || northing <= 0 || northing > kNorthEdge) {
    ngr = "Not valid";
    return;
  }
  ShowEastNorth(w, easting, northing);
  const Fineness fineness = FinenessFor(w.Resolution);
  int eastIndex = 0;
  int northIndex = 0;
  const std::string east = DigitsOf(easting, fineness, eastIndex);
  const std::string north = DigitsOf(northing, fineness, northIndex);
  const std::string letters = LettersOf(eastIndex, northIndex);
  ngr = letters + east + " " + north;
  w.Tarnwick.OSMap.caption = letters + LeftOf(east, 1) + LeftOf(north, 1);
}
