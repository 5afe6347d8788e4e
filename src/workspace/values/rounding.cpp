#include "workspace/values/rounding.h"

#include <algorithm>

double Finite(double number) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  if (std::isnan(number)) return 0;
  return std::clamp(number, -kLargest, kLargest);
}

float ToSingle(double number) {
  constexpr double kLargest = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(Finite(number), -kLargest, kLargest));
}

std::int16_t RoundToInt16(double number) {
  return Saturated<std::int16_t>(std::nearbyint(number));
}

std::int32_t RoundToInt32(double number) {
  return Saturated<std::int32_t>(std::nearbyint(number));
}

std::int16_t FloorToInt16(double number) {
  return Saturated<std::int16_t>(std::floor(number));
}

std::int32_t IntDivide(double dividend, double divisor) {
  const std::int64_t below = RoundToInt32(divisor);
  if (below == 0) return 0;
  const std::int64_t quotient = RoundToInt32(dividend) / below;
  return Saturated<std::int32_t>(static_cast<double>(quotient));
}

int SignOf(double number) {
  return (number > 0) - (number < 0);
}
