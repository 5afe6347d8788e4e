// How a number or a date becomes a visible text, and how a text becomes a number. Nothing here reads
// the locale, and nothing fails.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

// The text of a number under a picture such as "##0.0" or "0.00km / ": a literal head, whole-part
// places, optionally a point and fraction places, a literal tail. `0` always prints a digit, `#`
// only a digit that counts; all whole digits are printed however few the places. The number is
// first written with 15 significant digits, and that decimal text is rounded at the last fraction
// place, a tie going away from zero. A minus stands in front of the whole result; a value that
// rounds to zero has none.
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
