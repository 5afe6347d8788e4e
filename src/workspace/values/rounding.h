// How numbers become integers or finite numbers. Nothing here fails: a value outside the range of
// the result becomes the nearest value inside it, and NaN becomes 0.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

// The whole number as an `Integer`, limited to its range; 0 for NaN. A fraction is cut off.
template <class Integer>
Integer Saturated(double whole) {
  using Limits = std::numeric_limits<Integer>;
  if (std::isnan(whole)) return 0;
  if (whole <= Limits::min()) return Limits::min();
  if (whole >= Limits::max()) return Limits::max();
  return static_cast<Integer>(whole);
}

// The number itself, or the nearest finite one: an infinity becomes the largest finite number of
// its sign, NaN becomes 0.
double Finite(double number);

// The nearest single-precision number, finite; window positions are stored so.
float ToSingle(double number);

// Nearest integer; a tie goes to the even one.
std::int16_t RoundToInt16(double number);
std::int32_t RoundToInt32(double number);

// The largest integer not above the number.
std::int16_t FloorToInt16(double number);

// Rounds both numbers with RoundToInt32 and returns the quotient, cut toward zero; 0 if the divisor
// rounds to 0.
std::int32_t IntDivide(double dividend, double divisor);

// -1, 0 or 1; 0 for NaN.
int SignOf(double number);
