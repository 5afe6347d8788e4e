// Numbers as texts, and texts as numbers. Nothing here reads the locale, and nothing fails.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

// A picture such as "##0.0" or "0.00km / ": a literal head, places of the whole part, optionally a
// point and places of the fraction, a literal tail. `0` always prints a digit, `#` only a digit
// other than a leading or trailing zero. All whole digits are printed, even if there are fewer
// places.
struct Picture {
  std::string_view head, tail;  // views of the text of the picture
  std::size_t wholeZeros = 0;   // whole digits printed even if 0
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

// Returns a number as the picture lays it out. The number is rounded to 15 significant digits
// first, and these are rounded at the last fraction place, a tie away from zero. A minus sign
// precedes the whole result, unless the value rounds to zero.
std::string FormatPicture(double number, std::string_view picture);

// Writes the result of FormatPicture over the characters of `text` from index `at` on, counted from
// 0; the text grows if it is too short.
void PutPicture(std::string& text, std::size_t at, double number, const Picture& picture);

// Reads the number at the front of a text and ignores the rest; returns 0 if the text does not
// begin with a number. Blanks, tabs and line feeds are skipped, even between digits. An exponent is
// a letter E or D in either case with a digit after it; &H and &O introduce hexadecimal and octal
// whole numbers. The result is always finite.
double TextToNumber(std::string_view text);

// Returns the decimal text of a number: at most 15 significant digits (7 for a float), no zero
// before the point, a blank in front if it is not negative: " 51.5" for 51.5, "-.5" for -0.5. With
// more than 15 (7) whole digits, or as many zeros after the point, it has an exponent. TextToNumber
// reads every such text back.
std::string NumberToText(double number);
std::string NumberToText(float number);
