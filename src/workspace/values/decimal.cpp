#include "workspace/values/decimal.h"

#include <array>
#include <charconv>

#include "workspace/values/strings.h"

Decimal DecimalOf(double size, int significant) {
  std::array<char, 32> text{};
  const auto written = std::to_chars(text.data(), text.data() + text.size(), size,
                                     std::chars_format::scientific, significant - 1);
  Decimal decimal;
  const char* at = text.data();
  for (; *at != 'e'; ++at)
    if (IsDigit(*at)) decimal.digits += *at;
  ++at;
  if (*at == '+') ++at;
  std::from_chars(at, written.ptr, decimal.exponent);
  return decimal;
}
