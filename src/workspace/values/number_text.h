// Numbers and dates as texts, and texts as numbers; picture.h has FormatPicture. Nothing here reads
// the locale, and nothing fails.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "workspace/values/picture.h"  // IWYU pragma: export

// Returns a date under a picture in which YYYY, mm and dd are replaced by year, month and day.
std::string FormatDate(std::chrono::year_month_day date, std::string_view picture);

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
