#include "workspace/values/rounding.h"

float ToSingle(double number) {
  constexpr double kLargest = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(Finite(number), -kLargest, kLargest));
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
