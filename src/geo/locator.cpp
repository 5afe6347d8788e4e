#include "geo/locator.h"

#include <array>
#include <cstddef>

#include "geo/angles.h"
#include "geo/trigonometry.h"
#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"
#include "workspace/values/strings.h"

namespace {

constexpr double kKmPerDegree = 111.2;

// Half of a finest square, which is 1/2880 by 1/5760 of a degree: moves a decoded place from the
// edge of the cell into it.
constexpr double kHalfCellLon = 0.00017;
constexpr double kHalfCellLat = 0.000086;

// The number, from 0, of the character at a position that counts from 1.
int LetterAt(std::string_view lc, std::size_t position) {
  return CodeOf(lc.substr(position - 1)) - 'A';
}
int DigitAt(std::string_view lc, std::size_t position) {
  return CodeOf(lc.substr(position - 1)) - '0';
}

// The numbers of the five characters that divide an axis of 18 fields of 10 units. On which side a
// place on the edge of a cell falls depends on the order of this arithmetic.
std::array<int, 5> DivideAxis(double axis) {
  std::array<int, 5> numbers{FloorToInt16(axis / 10)};
  double rest = axis - 10 * numbers[0];
  std::size_t i = 0;
  for (const double cellsPerUnit : {1, 24, 240, 5760}) {
    numbers[++i] = FloorToInt16(rest * cellsPerUnit);
    rest -= numbers[i] / cellsPerUnit;
  }
  return numbers;
}

}  // namespace

void LocatorToWGS84(std::string_view lc, double& Lat, double& Lon, double& Resolution) {
  std::string all(lc.substr(0, 10));
  all += std::string_view("44MM").substr(all.size() - 6);
  Resolution = 278.0 / 60;
  if (lc.size() >= 8) Resolution = 27.8 / 60;
  if (lc.size() >= 10) Resolution = (0.25 / 24 * kKmPerDegree) / 60;
  const int wholeLon = (LetterAt(all, 1) - 9) * 20 + 2 * DigitAt(all, 3);
  const int wholeLat = (LetterAt(all, 2) - 9) * 10 + DigitAt(all, 4);
  Lon = wholeLon + (5.0 * LetterAt(all, 5)) / 60 + (0.5 * DigitAt(all, 7)) / 60 +
        LetterAt(all, 9) / 2880.0 + kHalfCellLon;
  Lat = wholeLat + (2.5 * LetterAt(all, 6)) / 60 + (0.25 * DigitAt(all, 8)) / 60 +
        LetterAt(all, 10) / 5760.0 + kHalfCellLat;
}

void GenLocator(double Lat, double Lon, std::string& lc) {
  const std::array<int, 5> lat = DivideAxis(Lat + 90);
  const std::array<int, 5> lon = DivideAxis((Lon + 180) / 2);
  lc.clear();
  for (std::size_t i = 0; i < lat.size(); ++i) {
    const char first = "A0A0A"[i];
    lc += CharOf(first + lon[i]);
    lc += CharOf(first + lat[i]);
  }
}

void DecodeLocator(Workspace& w, const std::string& lc, double& Lat, double& Lon) {
  if (LengthOf(lc) % 2 != 0) {
    w.Tarnwick.InputText.text = "Locator error";
    return;
  }
  LocatorToWGS84(lc, Lat, Lon, w.Resolution);
  w.Tarnwick.Ydim.caption = FormatPicture(w.Resolution * 1000, "###m");
  w.Tarnwick.Xdim.caption =
      FormatPicture(w.Resolution * 2000 * Cosine(Lat / kDegreesPerRadian), "###m");
}
