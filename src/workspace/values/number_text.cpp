#include "workspace/values/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

#include "workspace/values/rounding.h"
#include "workspace/values/strings.h"

namespace {

// A number as decimal digits d.ddd x 10^exponent, with at most 17 of them.
struct Decimal {
  std::string digits;
  int exponent = 0;
};

// The size of a finite number in exactly `significant` digits.
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

// Keeps the digits down to the place 10^-places, a tie going away from zero.
void RoundAt(Decimal& decimal, int places) {
  const int kept = decimal.exponent + 1 + places;
  if (kept >= static_cast<int>(decimal.digits.size())) return;
  if (kept < 0) {
    decimal = {"0", 0};
    return;
  }
  const auto keep = static_cast<std::size_t>(kept);
  const bool up = decimal.digits[keep] >= '5';
  decimal.digits.resize(keep);
  if (up) {
    std::size_t at = keep;
    while (at > 0 && decimal.digits[at - 1] == '9') decimal.digits[--at] = '0';
    if (at > 0) {
      ++decimal.digits[at - 1];
    } else {
      decimal.digits.insert(decimal.digits.begin(), '1');
      ++decimal.exponent;
    }
  }
  if (decimal.digits.empty()) decimal = {"0", 0};
}

// The digit that stands for 10^power.
char DigitAt(const Decimal& decimal, int power) {
  const int index = decimal.exponent - power;
  if (index < 0 || index >= static_cast<int>(decimal.digits.size())) return '0';
  return decimal.digits[static_cast<std::size_t>(index)];
}

// The parts of a picture.
struct Picture {
  std::string_view head, tail;
  int wholeZeros = 0;  // whole digits printed even if 0
  bool point = false;
  int fractionPlaces = 0;  // the most fraction digits
  int fractionZeros = 0;   // fraction digits printed even if 0
};

Picture PictureOf(std::string_view text) {
  Picture picture;
  std::size_t at = std::min(text.find_first_of("0#."), text.size());
  picture.head = text.substr(0, at);
  for (; at < text.size() && (text[at] == '0' || text[at] == '#'); ++at)
    picture.wholeZeros += text[at] == '0';
  if (at < text.size() && text[at] == '.') {
    picture.point = true;
    for (++at; at < text.size() && (text[at] == '0' || text[at] == '#'); ++at) {
      ++picture.fractionPlaces;
      if (text[at] == '0') picture.fractionZeros = picture.fractionPlaces;
    }
  }
  picture.tail = text.substr(at);
  return picture;
}

// The text of a number of at most `significant` digits, with an exponent where it would need more
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

// A text is read from its front; blanks, tabs and line feeds count as not there.
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

// The digits behind &H or &O.
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

// Reads an exponent such as E12 or d-3 if a digit stands in it, saturating far outside the range of
// a double; 0 otherwise.
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

}  // namespace

std::string FormatPicture(double number, std::string_view pictureText) {
  const Picture picture = PictureOf(pictureText);
  number = Finite(number);
  Decimal decimal = DecimalOf(std::fabs(number), 15);
  RoundAt(decimal, picture.fractionPlaces);
  const bool isZero = decimal.digits.find_first_not_of('0') == std::string::npos;

  std::string text;
  if (number < 0 && !isZero) text += '-';
  text += picture.head;
  const int wholeDigits = isZero ? 0 : decimal.exponent + 1;
  for (int power = std::max(wholeDigits, picture.wholeZeros) - 1; power >= 0; --power)
    text += DigitAt(decimal, power);
  if (picture.point) text += '.';
  int places = picture.fractionPlaces;
  while (places > picture.fractionZeros && DigitAt(decimal, -places) == '0') --places;
  for (int place = 1; place <= places; ++place) text += DigitAt(decimal, -place);
  return text += picture.tail;
}

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
  std::string_view rest = text;
  SkipBlanks(rest);
  if (Front(rest) == '&') {
    Next(rest);
    return RadixNumber(rest);
  }
  const bool negative = Front(rest) == '-';
  if (negative || Front(rest) == '+') Next(rest);

  // "0.00ddd" for from_chars, leading zeros dropped, and the power of ten of the first digit.
  std::string digits = "0.";
  bool point = false;
  int power = 0;
  for (;; Next(rest)) {
    const char c = Front(rest);
    if (c == '.' && !point) {
      point = true;
    } else if (IsDigit(c)) {
      const bool leadingZero = c == '0' && digits.size() == 2;
      if (!leadingZero) digits += c;
      if (leadingZero ? point : !point) power += point ? -1 : 1;
    } else {
      break;
    }
  }
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

std::string NumberToText(double number) {
  return PlainText(number, 15);
}

std::string NumberToText(float number) {
  return PlainText(static_cast<double>(number), 7);
}
