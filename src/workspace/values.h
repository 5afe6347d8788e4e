// The value primitives: how a number becomes a visible text and back, how numbers become
// integers, and how texts are cut and searched.
//
// Texts are single-byte (Windows-1252), so a position counts characters; positions count from 1
// and 0 means absent. Nothing here reads the locale, and nothing fails: a value outside the range
// of a result saturates.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

// Truth values as they are stored: a 16-bit integer.
inline constexpr std::int16_t kTrue = -1;
inline constexpr std::int16_t kFalse = 0;

// A value that starts empty and takes any number or truth value assigned to it. Empty counts as 0
// wherever a number is wanted.
struct UntypedValue {
  double number = 0;
  bool empty = true;

  UntypedValue() = default;
  UntypedValue(double value) : number(value), empty(false) {}
  operator double() const { return number; }
};

// True only for a value that was set to True; an empty value is never True.
bool IsTrue(const UntypedValue& value);

// The number itself, or the nearest finite one: infinities become the largest finite number of
// their sign, and what is no number becomes 0.
double Finite(double number);

// The nearest single-precision number, as the positions of windows are kept; finite.
float ToSingle(double number);

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

// Nearest integer, a tie going to the even one.
std::int16_t RoundToInt16(double number);
std::int32_t RoundToInt32(double number);

// The largest integer not above the number.
std::int16_t FloorToInt16(double number);

// Quotient, cut toward zero, of both numbers rounded by RoundToInt32; 0 if the divisor rounds to 0.
std::int32_t IntDivide(double dividend, double divisor);

// -1, 0 or 1.
int SignOf(double number);

// Characters.
int LengthOf(std::string_view text);

// The first `count` characters, or all there are; empty for a count below 1.
std::string LeftOf(std::string_view text, int count);

// `count` characters, or all the rest, from position `start`; empty from beyond the end.
std::string MidOf(std::string_view text, int start, int count);
// All the rest from position `start`.
std::string MidOf(std::string_view text, int start);

// Position of the first exact occurrence of `sought` at or after `start`; 0 if there is none.
int FindIn(int start, std::string_view text, std::string_view sought);

// Every letter that has a capital in the single-byte set raised to it; the length never changes.
std::string UpperOf(std::string_view text);
// The same for one character.
char UpperOf(char character);

// Code, 0 to 255, of the first character; 0 for an empty text.
std::int16_t CodeOf(std::string_view text);

// One character; codes below 0 and above 255 saturate.
std::string CharOf(int code);

// So many blanks; none for a count below 1.
std::string Blanks(int count);

// Replaces the character at `position`; a position outside the text changes nothing.
void SetCharAt(std::string& text, int position, char character);
