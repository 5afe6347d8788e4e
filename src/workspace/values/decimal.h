// Numbers as decimal digits.
#pragma once

#include <string>

// A number as decimal digits d.ddd x 10^exponent, with at most 17 of them.
struct Decimal {
  std::string digits;
  int exponent = 0;
};

// Returns the absolute value of a finite number in exactly `significant` digits, 17 at most.
Decimal DecimalOf(double size, int significant);
