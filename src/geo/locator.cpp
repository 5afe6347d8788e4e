#include "geo/locator.h"

#include "geo/angles.h"
#include "geo/trigonometry.h"
#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"
#include "workspace/values/strings.h"

namespace {

constexpr double kKmPerDegree = 111.2;

// Half of the smallest cell, 1/2880 by 1/5760 of a degree: a decoded place lies inside its cell.
constexpr double kHalfCellLon = 0.00017;
constexpr double kHalfCellLat = 0.000086;

int Letter(std::string_view lc, std::size_t position) {
  return CodeOf(lc.substr(position - 1)) - 65;
}
int Digit(std::string_view lc, std::size_t position) {
  return CodeOf(lc.substr(position - 1)) - 48;
}

// The numbers of the five characters that divide one axis.
struct Steps {
  int tens, ones, minutes, tenths, smallest;
};

// Cuts an axis of 18 fields of 10 units. The order of the steps decides on which side a place on
// the edge of a cell falls.
Steps StepsOf(double axis) {
  Steps steps{};
  steps.tens = FloorToInt16(axis / 10);
  const double r = axis - 10 * steps.tens;
  steps.ones = FloorToInt16(r);
  const double r1 = r - steps.ones;
  steps.minutes = FloorToInt16(r1 * 24);
  const double r2 = r1 - steps.minutes / 24.0;
  steps.tenths = FloorToInt16(r2 * 240);
  const double r3 = r2 - steps.tenths / 240.0;
  steps.smallest = FloorToInt16(r3 * 5760);
  return steps;
}

}  // namespace

void LocatorToWGS84(std::string_view lc, double& Lat, double& Lon, double& Resolution) {
  // What the text does not give is taken from the middle of the cell: 44, then MM.
  double d7 = 4, d8 = 4, c9 = 12, c10 = 12;
  Resolution = 278.0 / 60;
  if (lc.size() >= 8) {
    d7 = Digit(lc, 7);
    d8 = Digit(lc, 8);
    Resolution = 27.8 / 60;
  }
  if (lc.size() >= 10) {
    c9 = Letter(lc, 9);
    c10 = Letter(lc, 10);
    Resolution = (0.25 / 24 * kKmPerDegree) / 60;
  }
  const int wholeLon = (Letter(lc, 1) - 9) * 20 + 2 * Digit(lc, 3);
  const int wholeLat = (Letter(lc, 2) - 9) * 10 + Digit(lc, 4);
  Lon = wholeLon + (5.0 * Letter(lc, 5)) / 60 + (0.5 * d7) / 60 + c9 / 2880 + kHalfCellLon;
  Lat = wholeLat + (2.5 * Letter(lc, 6)) / 60 + (0.25 * d8) / 60 + c10 / 5760 + kHalfCellLat;
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

void GenLocator(double Lat, double Lon, std::string& lc) {
  const Steps lat = StepsOf(Lat + 90);
  const Steps lon = StepsOf((Lon + 180) / 2);
  lc.clear();
  for (const int code :
       {lon.tens + 65, lat.tens + 65, lon.ones + 48, lat.ones + 48, lon.minutes + 65,
        lat.minutes + 65, lon.tenths + 48, lat.tenths + 48, lon.smallest + 65, lat.smallest + 65})
    lc += CharOf(code);
}
