#include "geo/locator.h"

#include "geo/trigonometry.h"
#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"
#include "workspace/values/strings.h"

namespace {

constexpr double kKmPerDegree = 111.2;

// Half of a finest square, which is 1/2880 by 1/5760 of a degree: added to move a decoded place
// from the corner of its cell to the centre.
constexpr double kHalfCellLon = 0.00017;
constexpr double kHalfCellLat = 0.000086;

// Writes the characters of one axis as WriteAxis does. The order of the arithmetic decides to which
// cell a place on an edge belongs.
void WriteAxisByStep(double axis, char* at) {
  const int field = FloorToInt16(axis / 10);
  double rest = axis - 10 * field;
  char first = 'A';
  *at = CharOf(first + field);
  for (const double cellsPerUnit : {1.0, 24.0, 240.0, kFinestSquares}) {
    const int number = FloorToInt16(rest * cellsPerUnit);
    rest -= number / cellsPerUnit;
    first = first == 'A' ? '0' : 'A';
    *(at += 2) = CharOf(first + number);
  }
}

// Writes the five characters of one axis to at[0], at[2] ... at[8]. The axis has 18 fields of 10
// units; a unit is 1 degree of latitude or 2 of longitude. Divides the number of the finest square,
// unless the place is so close to the edge of a square that rounding could decide.
void WriteAxis(double axis, char* at) {
  constexpr double kMargin = 1e-6;
  const double cells = axis * kFinestSquares;
  if (!(cells >= 0 && cells < 180 * kFinestSquares)) return WriteAxisByStep(axis, at);
  auto rest = static_cast<unsigned>(cells);
  const double inCell = cells - rest;
  if (inCell < kMargin || inCell > 1 - kMargin) return WriteAxisByStep(axis, at);
  at[8] = static_cast<char>('A' + rest % 24);
  at[6] = static_cast<char>('0' + (rest /= 24) % 10);
  at[4] = static_cast<char>('A' + (rest /= 10) % 24);
  at[2] = static_cast<char>('0' + (rest /= 24) % 10);
  at[0] = static_cast<char>('A' + rest / 10);
}

}  // namespace

void LocatorToWGS84(std::string_view lc, double& Lat, double& Lon, double& Resolution) {
  char all[] = "______44MM";
  lc.copy(all, 10);
  // The value, from 0, of the letter or digit at an index.
  const auto letter = [&all](int i) { return static_cast<unsigned char>(all[i]) - 'A'; };
  const auto digit = [&all](int i) { return static_cast<unsigned char>(all[i]) - '0'; };
  Resolution = 278.0 / 60;
  if (lc.size() >= 8) Resolution = 27.8 / 60;
  if (lc.size() >= 10) Resolution = (0.25 / 24 * kKmPerDegree) / 60;
  const int wholeLon = (letter(0) - 9) * 20 + 2 * digit(2);
  const int wholeLat = (letter(1) - 9) * 10 + digit(3);
  Lon =
      wholeLon + (5.0 * letter(4)) / 60 + (0.5 * digit(6)) / 60 + letter(8) / 2880.0 + kHalfCellLon;
  Lat = wholeLat + (2.5 * letter(5)) / 60 + (0.25 * digit(7)) / 60 + letter(9) / 5760.0 +
        kHalfCellLat;
}

void GenLocator(double Lat, double Lon, std::string& lc) {
  lc.resize(10);
  WriteAxis((Lon + 180) / 2, lc.data());
  WriteAxis(Lat + 90, lc.data() + 1);
}

void DecodeLocator(Workspace& w, const std::string& lc, double& Lat, double& Lon) {
  if (lc.size() % 2 != 0) {
    w.Tarnwick.InputText.text = "Locator error";
    return;
  }
  LocatorToWGS84(lc, Lat, Lon, w.Resolution);
  w.Tarnwick.Ydim.caption = FormatPicture(w.Resolution * 1000, "###m");
  w.Tarnwick.Xdim.caption =
      FormatPicture(w.Resolution * 2000 * Cosine(Lat / kDegreesPerRadian), "###m");
}
