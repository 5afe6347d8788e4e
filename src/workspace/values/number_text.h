// How a number or a date becomes a visible text, and how a text becomes a number. Nothing here reads
// the locale, and nothing fails.
#pragma once

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>

// The parts of a picture such as "##0.0" or "0.00km / ": a literal head, whole-part places,
// optionally a point and fraction places, a literal tail. `0` always prints a digit, `#` only a
// digit that counts; all whole digits are printed however few the places.
struct Picture {
  std::string_view head, tail;
  std::size_t wholeZeros = 0;      // whole digits printed even if 0
  bool point = false;
  std::size_t fractionPlaces = 0;  // the most fraction digits
  std::size_t fractionZeros = 0;   // fraction digits printed even if 0
};

constexpr Picture PictureOf(std::string_view text) {
  constexpr auto isPlace = [](char c) { return c == '0' || c == '#'; };
  Picture picture;
  std::size_t at = std::min(text.find_first_of("0#."), text.size());
  picture.head = text.substr(0, at);
  for (; at < text.size() && isPlace(text[at]); ++at) picture.wholeZeros += text[at] == '0';
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

// Writes the text of a number under a picture over the characters of `text` from position `at` on,
// counted from 0; the text grows if it is too short. The number is first written with 15
// significant digits, and that decimal text is rounded at the last fraction place, a tie going away
// from zero. A minus stands in front of the whole result; a value that rounds to zero has none.
void PutPicture(std::string& text, std::size_t at, double number, const Picture& picture);

// The same as a text of its own.
std::string FormatPicture(double number, std::string_view picture);

// A date under a picture in which YYYY, mm and dd stand for four-digit year, month and day.
std::string FormatDate(std::chrono::year_month_day date, std::string_view picture);

// The number at the front of a text; what follows is ignored, and a text in which no number begins
// reads 0. Blanks, tabs and line feeds are skipped even between digits. An exponent is a letter E
// or D in either case with a digit behind it; &H and &O open hexadecimal and octal whole numbers.
// The result is always finite.
double TextToNumber(std::string_view text);

// The decimal text of a number, at most 15 significant digits (7 for a single), no zero before the
// point, a leading blank if it is not negative: 51.5 gives " 51.5", -0.5 gives "-.5". Above 15 (7)
// whole digits, or with as many zeros behind the point, an exponent is written. TextToNumber reads
// every such text back.
std::string NumberToText(double number);
std::string NumberToText(float number);
