// Numbers under pictures such as "##0.0".
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

// The parts of a picture such as "##0.0" or "0.00km / ": a literal head, places of the whole part,
// optionally a point and places of the fraction, a literal tail. `0` always prints a digit, `#`
// only a digit other than a leading or trailing zero. All whole digits are printed, even if there
// are fewer places.
struct Picture {
  std::string_view head, tail;
  std::size_t wholeZeros = 0;  // whole digits printed even if 0
  bool point = false;
  std::size_t fractionPlaces = 0;  // the most fraction digits
  std::size_t fractionZeros = 0;   // fraction digits printed even if 0
};

// Splits the text of a picture, which must outlive the result.
constexpr Picture PictureOf(std::string_view text) {
  constexpr auto isPlace = [](char c) { return c == '0' || c == '#'; };
  Picture picture;
  std::size_t at = std::min(text.find_first_of("0#."), text.size());
  picture.head = text.substr(0, at);
  for (; at < text.size() && isPlace(text[at]); ++at)
    if (text[at] == '0') ++picture.wholeZeros;
  if (at < text.size() && text[at] == '.') {
    picture.point = true;
    for (++at; at < text.size() && isPlace(text[at]); ++at) {
      ++picture.fractionPlaces;
      if (text[at] == '0') picture.fractionZeros = picture.fractionPlaces;
    }
  }
  picture.tail = text.substr(at);
  return picture;
}

// Writes a number under a picture over the characters of `text` from index `at` on, counted from 0;
// the text grows if it is too short. The number is written with 15 significant digits first, and
// that decimal text is rounded at the last fraction place, a tie away from zero. A minus is put in
// front of the whole result, but not in front of a value that rounds to zero.
void PutPicture(std::string& text, std::size_t at, double number, const Picture& picture);

// Returns what PutPicture writes.
std::string FormatPicture(double number, std::string_view picture);
