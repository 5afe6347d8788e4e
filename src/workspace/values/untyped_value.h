// Truth values, and values without a fixed type, as the record stores them.
#pragma once

#include <cstdint>

// Truth values as they are stored: a 16-bit integer.
inline constexpr std::int16_t kTrue = -1;
inline constexpr std::int16_t kFalse = 0;

// A number, a truth value, or empty, which is the initial state. Empty converts to 0.
struct UntypedValue {
  double number = 0;
  bool empty = true;

  UntypedValue() = default;
  UntypedValue(double value) : number(value), empty(false) {}
  operator double() const { return number; }
};

// Whether the value is True; an empty value is not.
inline bool IsTrue(const UntypedValue& value) {
  return !value.empty && value.number == kTrue;
}
