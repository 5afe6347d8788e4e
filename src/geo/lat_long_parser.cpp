#include "geo/lat_long_parser.h"

#include <algorithm>
#include <cmath>
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
  int position;  // 0 if the text has neither letter
  int sign;      // 1 for the positive letter, else -1
};

Hemisphere FindHemisphere(const std::string& a, const char* positive, const char* negative) {
  const int position = FindIn(1, a, positive);
  if (position > 0) return {position, 1};
  return {FindIn(1, a, negative), -1};
}

// Degrees of one axis from up to three fields, such as " 1 15 30". A single field loses its
// sign; degrees followed by further fields keep their sign.
double DegreesOf(const std::string& text) {
  const int firstBlank = FindIn(2, text, " ");
  if (firstBlank == 0) return std::fabs(TextToNumber(text));
  int secondBlank = FindIn(firstBlank + 1, text, " ");
  if (secondBlank == 0) secondBlank = LengthOf(text);
  const double degrees = TextToNumber(LeftOf(text, firstBlank - 1));
  const double minutes = TextToNumber(MidOf(text, firstBlank + 1, secondBlank - firstBlank));
  const double seconds = TextToNumber(MidOf(text, secondBlank + 1));
  return (degrees + minutes / 60) + seconds / 3600;
}

}  // namespace

void ParseLatLong(Workspace& w, std::string& a) {
  Normalise(a);
  const Hemisphere northSouth = FindHemisphere(a, "N", "S");
  const Hemisphere eastWest = FindHemisphere(a, "E", "W");
  if (northSouth.position == 0 || eastWest.position == 0) {
    a.clear();
    return;
  }
  const int first = std::min(northSouth.position, eastWest.position);
  const int second = std::max(northSouth.position, eastWest.position);
  std::string lat = LeftOf(a, first - 1);
  std::string lon = MidOf(a, first + 1, second - first - 1);
  if (eastWest.position < northSouth.position) std::swap(lat, lon);

  w.Lat = Finite(northSouth.sign * DegreesOf(lat));
  w.Lon = Finite(eastWest.sign * DegreesOf(lon));
  w.Resolution = 0.001;
  w.Tarnwick.Xdim.caption = "~";
  w.Tarnwick.Ydim.caption = "~";
}
