// Truth values and values without a fixed type, as the record stores them.
#pragma once

#include <cstdint>

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
inline bool IsTrue(const UntypedValue& value) {
  return !value.empty && value.number == kTrue;
}
