#include "geo/locator.h"

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

// The number of the character at a position that counts from 1.
int LetterAt(std::string_view lc, std::size_t position) {
  return CodeOf(lc.substr(position - 1)) - 'A';
}
int DigitAt(std::string_view lc, std::size_t position) {
  return CodeOf(lc.substr(position - 1)) - '0';
}

// The numbers of the five characters that divide one axis.
struct CellNumbers {
  int field, square, subsquare, extended, finest;
};

// Divides an axis of 18 fields of 10 units. On which side a place on the edge of a cell falls
// depends on the order of this arithmetic.
CellNumbers DivideAxis(double axis) {
  CellNumbers cell{};
  cell.field = FloorToInt16(axis / 10);
  const double inField = axis - 10 * cell.field;
  cell.square = FloorToInt16(inField);
  const double inSquare = inField - cell.square;
  cell.subsquare = FloorToInt16(inSquare * 24);
  const double inSubsquare = inSquare - cell.subsquare / 24.0;
  cell.extended = FloorToInt16(inSubsquare * 240);
  const double inExtended = inSubsquare - cell.extended / 240.0;
  cell.finest = FloorToInt16(inExtended * 5760);
  return cell;
}

}  // namespace

void LocatorToWGS84(std::string_view lc, double& Lat, double& Lon, double& Resolution) {
  double extendedLon = 4;
  double extendedLat = 4;
  double finestLon = 'M' - 'A';
  double finestLat = 'M' - 'A';
  Resolution = 278.0 / 60;
  if (lc.size() >= 8) {
    extendedLon = DigitAt(lc, 7);
    extendedLat = DigitAt(lc, 8);
    Resolution = 27.8 / 60;
  }
  if (lc.size() >= 10) {
    finestLon = LetterAt(lc, 9);
    finestLat = LetterAt(lc, 10);
    Resolution = (0.25 / 24 * kKmPerDegree) / 60;
  }
  const int wholeLon = (LetterAt(lc, 1) - 9) * 20 + 2 * DigitAt(lc, 3);
  const int wholeLat = (LetterAt(lc, 2) - 9) * 10 + DigitAt(lc, 4);
  Lon = wholeLon + (5.0 * LetterAt(lc, 5)) / 60 + (0.5 * extendedLon) / 60 + finestLon / 2880 +
        kHalfCellLon;
  Lat = wholeLat + (2.5 * LetterAt(lc, 6)) / 60 + (0.25 * extendedLat) / 60 + finestLat / 5760 +
        kHalfCellLat;
}

void GenLocator(double Lat, double Lon, std::string& lc) {
  const CellNumbers lat = DivideAxis(Lat + 90);
  const CellNumbers lon = DivideAxis((Lon + 180) / 2);
  lc.clear();
  for (const int code : {lon.field + 'A', lat.field + 'A', lon.square + '0', lat.square + '0',
                         lon.subsquare + 'A', lat.subsquare + 'A', lon.extended + '0',
                         lat.extended + '0', lon.finest + 'A', lat.finest + 'A'})
    lc += CharOf(code);
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
