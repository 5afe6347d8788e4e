#include "geo/lat_long_display.h"

#include <cmath>
#include <string>

#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"

namespace {

constexpr const char* kDegreeSign = "\xB0 ";

// Degrees, not negative, as degrees and decimal minutes: 51° 30.5000'
std::string MinutesText(double angle, const char* degreesPicture) {
  const int degrees = FloorToInt16(angle);
  return FormatPicture(degrees, degreesPicture) + kDegreeSign +
         FormatPicture((angle - degrees) * 60, "00.0000' ");
}

// Degrees, not negative, as degrees, minutes and decimal seconds: 51° 30' 30.0''
std::string SecondsText(double angle, const char* degreesPicture) {
  const int degrees = FloorToInt16(angle);
  const int minutes = FloorToInt16((angle - degrees) * 60);
  const double seconds = ((angle - degrees) - minutes / 60.0) * 3600;
  return FormatPicture(degrees, degreesPicture) + kDegreeSign + FormatPicture(minutes, "00'") +
         " " + FormatPicture(seconds, "00.0'' ");
}

}  // namespace

void ShowLatLong(Workspace& w) {
  const char* eastWest = w.Lon < 0 ? "W" : "E";
  const char* northSouth = w.Lat < 0 ? "S" : "N";
  const double lat = std::fabs(w.Lat);
  const double lon = std::fabs(w.Lon);
  std::string& text = w.Tarnwick.LLText.text;
  if (w.LLFormat == 0) {
    text = FormatPicture(lat, "##0.000000") + northSouth + " , " +
           FormatPicture(lon, "###0.000000") + eastWest;
  } else if (w.LLFormat == 1) {
    text = MinutesText(lat, "##0") + northSouth + " , " + MinutesText(lon, "#0") + eastWest;
  } else {
    text = SecondsText(lat, "##0") + northSouth + ", " + SecondsText(lon, "#0") + eastWest;
  }
}

void LLfmt_Click(Workspace& w) {
  w.LLFormat = std::fmod(w.LLFormat + 1, 3);
  ShowLatLong(w);
}
