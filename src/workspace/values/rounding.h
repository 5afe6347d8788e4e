// Rounding and range limits. Nothing here fails: a value outside the range of the result becomes
// the nearest value inside it, and NaN becomes 0.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

// Returns the number as an `Integer`, with the fraction cut off.
template <class Integer>
Integer Saturated(double whole) {
  using Limits = std::numeric_limits<Integer>;
  if (std::isnan(whole)) return 0;
  if (whole <= Limits::min()) return Limits::min();
  if (whole >= Limits::max()) return Limits::max();
  return static_cast<Integer>(whole);
}

// Returns the number if it is finite, the largest finite number of its sign if it is infinite, and
// 0 for NaN.
inline double Finite(double number) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  if (std::isnan(number)) return 0;
  return std::clamp(number, -kLargest, kLargest);
}

// Returns the nearest single-precision number, finite. Window positions are stored in it.
inline float ToSingle(double number) {
  constexpr double kLargest = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(Finite(number), -kLargest, kLargest));
}

// Return the nearest integer, for a tie the even one.
inline std::int32_t RoundToInt32(double number) {
  return Saturated<std::int32_t>(std::nearbyint(number));
}
inline std::int16_t RoundToInt16(double number) {
  return Saturated<std::int16_t>(std::nearbyint(number));
}

// Returns the largest integer that is not above the number.
inline std::int16_t FloorToInt16(double number) {
  return Saturated<std::int16_t>(std::floor(number));
}
