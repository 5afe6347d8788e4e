#include "workspace/values/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <system_error>

#include "workspace/values/decimal.h"
#include "workspace/values/rounding.h"
#include "workspace/values/strings.h"

namespace {

// The digit whose place value is 10^power.
char DigitAt(const Decimal& decimal, int power) {
  const int index = decimal.exponent - power;
  if (index < 0 || index >= static_cast<int>(decimal.digits.size())) return '0';
  return decimal.digits[static_cast<std::size_t>(index)];
}

// The text of a number of at most `significant` digits, with an exponent if it would need more
// than that many places on either side of the point.
std::string PlainText(double number, int significant) {
  number = Finite(number);
  if (number == 0) return " 0";
  Decimal decimal = DecimalOf(std::fabs(number), significant);
  while (decimal.digits.size() > 1 && decimal.digits.back() == '0') decimal.digits.pop_back();
  std::string text(1, number < 0 ? '-' : ' ');
  const std::string& digits = decimal.digits;
  if (decimal.exponent >= significant || decimal.exponent < -significant) {
    text += digits[0];
    if (digits.size() > 1) text.append(".").append(digits, 1);
    const int size = std::abs(decimal.exponent);
    text.append(decimal.exponent < 0 ? "E-" : "E+").append(size < 10 ? "0" : "");
    return text + std::to_string(size);
  }
  for (int power = decimal.exponent; power >= 0; --power) text += DigitAt(decimal, power);
  const int lowest = decimal.exponent - static_cast<int>(digits.size()) + 1;
  if (lowest < 0) text += '.';
  for (int power = -1; power >= lowest; --power) text += DigitAt(decimal, power);
  return text;
}

// The number of a text of 1 to 15 digits, which a double represents exactly; nothing for other
// texts.
std::optional<double> ShortWholeNumber(std::string_view text) {
  if (text.empty() || text.size() > 15) return {};
  std::int64_t number = 0;
  for (const char c : text) {
    if (!IsDigit(c)) return {};
    number = number * 10 + (c - '0');
  }
  return static_cast<double>(number);
}

// Blanks, tabs and line feeds do not count, even between digits.
void SkipBlanks(std::string_view& rest) {
  const std::size_t at = rest.find_first_not_of(" \t\n");
  rest.remove_prefix(std::min(at, rest.size()));
}

char Front(std::string_view rest) {
  return rest.empty() ? '\0' : rest.front();
}

void Next(std::string_view& rest) {
  rest.remove_prefix(1);
  SkipBlanks(rest);
}

// Reads the rest of a hexadecimal or octal number, from the letter H or O on; 0 for other letters.
double RadixNumber(std::string_view rest) {
  const char letter = UpperOf(Front(rest));
  const int radix = letter == 'H' ? 16 : letter == 'O' ? 8 : 0;
  if (radix == 0) return 0;
  double number = 0;
  for (Next(rest);; Next(rest)) {
    const char c = UpperOf(Front(rest));
    const int digit = IsDigit(c) ? c - '0' : c >= 'A' && c <= 'F' ? c - 'A' + 10 : radix;
    if (digit >= radix) return number;
    number = Finite(number * radix + digit);
  }
}

// Reads an exponent such as E12 or d-3; 0 if there is none. A large exponent saturates far outside
// the range of a double.
int Exponent(std::string_view rest) {
  constexpr int kBeyond = 2'000'000'000;
  if (UpperOf(Front(rest)) != 'E' && UpperOf(Front(rest)) != 'D') return 0;
  Next(rest);
  const bool negative = Front(rest) == '-';
  if (negative || Front(rest) == '+') Next(rest);
  int exponent = 0;
  for (; IsDigit(Front(rest)); Next(rest))
    exponent = exponent >= kBeyond / 10 ? kBeyond : exponent * 10 + (Front(rest) - '0');
  return negative ? -exponent : exponent;
}

// Reads digits and at most one point from the front of a text. Returns the digits from the first
// that is not 0 on as a fraction, "0.ddd"; the number is that fraction times 10^power.
std::string ReadDigits(std::string_view& rest, int& power) {
  std::string digits = "0.";
  bool point = false;
  for (;; Next(rest)) {
    const char c = Front(rest);
    if (c == '.' && !point) {
      point = true;
      continue;
    }
    if (!IsDigit(c)) return digits;
    const bool leadingZero = c == '0' && digits.size() == 2;
    if (!leadingZero) digits += c;
    if (leadingZero && point) --power;
    if (!leadingZero && !point) ++power;
  }
}

// Reads the number at the front of any text. Not inlined, so that TextToNumber is short.
[[gnu::noinline]] double FrontNumber(std::string_view rest) {
  SkipBlanks(rest);
  if (Front(rest) == '&') {
    Next(rest);
    return RadixNumber(rest);
  }
  const bool negative = Front(rest) == '-';
  if (negative || Front(rest) == '+') Next(rest);
  int power = 0;
  std::string digits = ReadDigits(rest, power);
  if (digits.size() == 2) return 0;
  power = Saturated<std::int32_t>(static_cast<double>(power) + Exponent(rest));
  if (power < -400) return 0;
  if (power > 400) return Finite(negative ? -HUGE_VAL : HUGE_VAL);
  digits.append("e").append(std::to_string(power));
  double number = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (read.ec == std::errc::result_out_of_range) number = power > 0 ? Finite(HUGE_VAL) : 0;
  return negative ? -number : number;
}

}  // namespace

std::string FormatDate(std::chrono::year_month_day date, std::string_view picture) {
  std::string text(picture);
  const auto put = [&text](std::string_view places, unsigned number) {
    const std::size_t at = text.find(places);
    if (at == std::string::npos) return;
    const std::string digits = std::to_string(number);
    const std::size_t zeros = places.size() - std::min(places.size(), digits.size());
    text.replace(at, places.size(), std::string(zeros, '0') + digits);
  };
  put("YYYY", static_cast<unsigned>(std::max(0, static_cast<int>(date.year()))));
  put("mm", static_cast<unsigned>(date.month()));
  put("dd", static_cast<unsigned>(date.day()));
  return text;
}

double TextToNumber(std::string_view text) {
  const std::optional<double> whole = ShortWholeNumber(text);
  return whole ? *whole : FrontNumber(text);
}

std::string NumberToText(double number) {
  return PlainText(number, 15);
}

std::string NumberToText(float number) {
  return PlainText(static_cast<double>(number), 7);
}
