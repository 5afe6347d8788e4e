// How numbers become integers or finite numbers. Nothing here fails: a value outside the range of
// the result becomes the nearest value inside it, and NaN becomes 0.
#pragma once

#include <algorithm>
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
inline double Finite(double number) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  if (std::isnan(number)) return 0;
  return std::clamp(number, -kLargest, kLargest);
}

// The nearest single-precision number, finite; window positions are stored so.
float ToSingle(double number);

// Nearest integer; a tie goes to the even one.
inline std::int32_t RoundToInt32(double number) {
  if (!(std::fabs(number) < 0x1p30)) return Saturated<std::int32_t>(std::nearbyint(number));
  const auto whole = static_cast<std::int32_t>(number);
  const double fraction = number - whole;
  const double half = whole % 2 == 0 ? 0.5 : 0x1.fffffffffffffp-2;  // odd: a tie exceeds it
  return whole + (fraction > half) - (fraction < -half);
}
inline std::int16_t RoundToInt16(double number) {
  constexpr std::int32_t kLeast = std::numeric_limits<std::int16_t>::min();
  constexpr std::int32_t kMost = std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(std::clamp(RoundToInt32(number), kLeast, kMost));
}

// The largest integer not above the number.
inline std::int16_t FloorToInt16(double number) {
  if (!(std::fabs(number) < 0x1p14)) return Saturated<std::int16_t>(std::floor(number));
  const auto whole = static_cast<std::int16_t>(number);
  return static_cast<std::int16_t>(whole - (number < whole));
}

// Rounds both numbers with RoundToInt32 and returns the quotient, cut toward zero; 0 if the divisor
// rounds to 0.
std::int32_t IntDivide(double dividend, double divisor);

// -1, 0 or 1; 0 for NaN.
int SignOf(double number);
