#include "geo/lat_long_parser.h"

#include <algorithm>
#include <cmath>

#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"
#include "workspace/values/strings.h"

namespace {

// Turns the marks into blanks and every run of blanks into one.
void Normalise(std::string& a) {
  const auto isMark = [](char c) { return c == '"' || c == ',' || c == '\'' || c == '\xB0'; };
  std::replace_if(a.begin(), a.end(), isMark, ' ');
  const auto bothBlank = [](char c, char d) { return c == ' ' && d == ' '; };
  a.erase(std::unique(a.begin(), a.end(), bothBlank), a.end());
  a = UpperOf(a);
}

// Position of the letter of an axis, the positive one before the negative one; sign says which.
int Hemisphere(const std::string& a, const char* positive, const char* negative, int& sign) {
  const int at = FindIn(1, a, positive);
  sign = at > 0 ? 1 : -1;
  return at > 0 ? at : FindIn(1, a, negative);
}

// Degrees of one axis from up to three fields, such as " 1 15 30". Of a single field the sign is
// dropped; of several the degrees keep theirs.
double DegreesOf(const std::string& text) {
  const int p = FindIn(2, text, " ");
  if (p == 0) return std::fabs(TextToNumber(text));
  int q = FindIn(p + 1, text, " ");
  if (q == 0) q = LengthOf(text);
  const double degrees = TextToNumber(LeftOf(text, p - 1));
  const double minutes = TextToNumber(MidOf(text, p + 1, q - p));
  const double seconds = TextToNumber(MidOf(text, q + 1));
  return (degrees + minutes / 60) + seconds / 3600;
}

}  // namespace

void ParseLatLong(Workspace& w, std::string& a) {
  Normalise(a);
  int northSouth = 1;
  int eastWest = 1;
  const int atNorthSouth = Hemisphere(a, "N", "S", northSouth);
  const int atEastWest = Hemisphere(a, "E", "W", eastWest);
  if (atNorthSouth == 0 || atEastWest == 0) {
    a.clear();
    return;
  }
  const int first = std::min(atNorthSouth, atEastWest);
  const int second = std::max(atNorthSouth, atEastWest);
  std::string lat = LeftOf(a, first - 1);
  std::string lon = MidOf(a, first + 1, second - first - 1);
  if (atEastWest < atNorthSouth) std::swap(lat, lon);

  w.Lat = Finite(northSouth * DegreesOf(lat));
  w.Lon = Finite(eastWest * DegreesOf(lon));
  w.Resolution = 0.001;
  w.Tarnwick.Xdim.caption = "~";
  w.Tarnwick.Ydim.caption = "~";
}
