#include "geo/lat_long.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"
#include "workspace/values/strings.h"

namespace {

// Converts to upper case, and replaces marks and commas by blanks and each run of blanks by one.
void Normalise(std::string& a) {
  const auto isMark = [](char c) { return c == '"' || c == ',' || c == '\'' || c == '\xB0'; };
  std::replace_if(a.begin(), a.end(), isMark, ' ');
  const auto bothBlank = [](char c, char d) { return c == ' ' && d == ' '; };
  a.erase(std::unique(a.begin(), a.end(), bothBlank), a.end());
  a = UpperOf(a);
}

// The hemisphere letter of an axis.
struct Hemisphere {
  std::size_t at;  // its index in the text; npos if the text has neither letter
  int sign;        // 1 for the positive letter, else -1
};

Hemisphere FindHemisphere(std::string_view a, char positive, char negative) {
  const std::size_t at = a.find(positive);
  if (at != std::string_view::npos) return {at, 1};
  return {a.find(negative), -1};
}

// Degrees of one axis from up to three fields, such as " 1 15 30". A single field loses its
// sign; degrees followed by further fields keep their sign.
double DegreesOf(std::string_view text) {
  const std::size_t first = text.find(' ', 1);
  if (first == std::string_view::npos) return std::fabs(TextToNumber(text));
  const std::size_t second = std::min(text.find(' ', first + 1), text.size());
  const double degrees = TextToNumber(text.substr(0, first));
  const double minutes = TextToNumber(text.substr(first, second - first));
  const double seconds = TextToNumber(text.substr(second));
  return (degrees + minutes / 60) + seconds / 3600;
}

// An angle, degrees, as degrees and decimal minutes, 51° 30.5000', or as degrees, minutes and
// decimal seconds, 51° 30' 30.0''. The sign is left out.
std::string AngleText(double angle, bool asSeconds, const char* degreesPicture) {
  angle = std::fabs(angle);
  const int degrees = FloorToInt16(angle);
  const std::string text = FormatPicture(degrees, degreesPicture) + "\xB0 ";
  const double minutes = (angle - degrees) * 60;
  if (!asSeconds) return text + FormatPicture(minutes, "00.0000' ");
  const int wholeMinutes = FloorToInt16(minutes);
  const double seconds = ((angle - degrees) - wholeMinutes / 60.0) * 3600;
  return text + FormatPicture(wholeMinutes, "00' ") + FormatPicture(seconds, "00.0'' ");
}

}  // namespace

void ParseLatLong(Workspace& w, std::string& a) {
  Normalise(a);
  const Hemisphere northSouth = FindHemisphere(a, 'N', 'S');
  const Hemisphere eastWest = FindHemisphere(a, 'E', 'W');
  const auto [first, second] = std::minmax({northSouth.at, eastWest.at});
  if (second == std::string::npos) {
    a.clear();
    return;
  }
  std::string lat = a.substr(0, first);
  std::string lon = a.substr(first + 1, second - first - 1);
  if (eastWest.at < northSouth.at) std::swap(lat, lon);

  w.Lat = Finite(northSouth.sign * DegreesOf(lat));
  w.Lon = Finite(eastWest.sign * DegreesOf(lon));
  w.Resolution = 0.001;
  w.Tarnwick.Xdim.caption = "~";
  w.Tarnwick.Ydim.caption = "~";
}

void ShowLatLong(Workspace& w) {
  const char* eastWest = w.Lon < 0 ? "W" : "E";
  const char* northSouth = w.Lat < 0 ? "S" : "N";
  std::string& text = w.Tarnwick.LLText.text;
  if (w.LLFormat == 0) {
    text = FormatPicture(std::fabs(w.Lat), "##0.000000") + northSouth + " , " +
           FormatPicture(std::fabs(w.Lon), "###0.000000") + eastWest;
  } else {
    const bool asSeconds = w.LLFormat != 1;
    text = AngleText(w.Lat, asSeconds, "##0") + northSouth + (asSeconds ? ", " : " , ") +
           AngleText(w.Lon, asSeconds, "#0") + eastWest;
  }
}

void LLfmt_Click(Workspace& w) {
  w.LLFormat = std::fmod(w.LLFormat + 1, 3);
  ShowLatLong(w);
}
