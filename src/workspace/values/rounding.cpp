#include "workspace/values/rounding.h"

float ToSingle(double number) {
  constexpr double kLargest = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(Finite(number), -kLargest, kLargest));
}

int SignOf(double number) {
  return number > 0 ? 1 : number < 0 ? -1 : 0;
}
