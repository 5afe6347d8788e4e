#include "workspace/values/number_text.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <system_error>

#include "workspace/values/rounding.h"
#include "workspace/values/strings.h"

namespace {

// The absolute value of a number: d.ddd x 10^exponent, where `digits` has no point.
struct Decimal {
  std::string digits;
  int exponent;
};

// Returns a finite number rounded to `significant` digits, from 2 to 17.
Decimal DecimalOf(double number, int significant) {
  char text[32];
  const auto written = std::to_chars(text, std::end(text), std::fabs(number),
                                     std::chars_format::scientific, significant - 1);
  std::string digits(text, written.ptr);
  const std::size_t e = digits.find('e');
  const double exponent = TextToNumber(digits.substr(e + 1));
  digits.erase(e).erase(1, 1);  // the point
  return {digits, static_cast<int>(exponent)};
}

// Returns a number as text with at most `significant` digits, and with an exponent if it would need
// more places than that on either side of the point.
std::string PlainText(double number, int significant) {
  number = Finite(number);
  if (number == 0) return " 0";
  auto [digits, exponent] = DecimalOf(number, significant);
  digits.erase(digits.find_last_not_of('0') + 1);
  const bool plain = exponent < significant && exponent >= -significant;
  if (plain && exponent < 0) digits.insert(0, static_cast<std::size_t>(-exponent - 1), '0');
  const auto whole = static_cast<std::size_t>(plain ? std::max(exponent + 1, 0) : 1);
  if (digits.size() < whole) digits.resize(whole, '0');
  if (digits.size() > whole) digits.insert(whole, 1, '.');
  const std::string text = (number < 0 ? "-" : " ") + digits;
  return plain ? text : text + FormatPicture(std::abs(exponent), exponent < 0 ? "E-00" : "E+00");
}

// Reads the rest of a hexadecimal or octal number in capitals, from the letter H or O on; 0 for
// other letters.
double RadixNumber(std::string_view text) {
  const int radix = text.starts_with('H') ? 16 : text.starts_with('O') ? 8 : 0;
  double number = 0;
  for (const char c : text.substr(std::min<std::size_t>(1, text.size()))) {
    const int digit = IsDigit(c) ? c - '0' : c >= 'A' && c <= 'F' ? c - 'A' + 10 : radix;
    if (digit >= radix) break;
    number = Finite(number * radix + digit);
  }
  return number;
}

// Whether a number that a double cannot represent, such as "1.5E400", is above 1.
bool IsHuge(std::string_view text) {
  const std::size_t mantissa = std::min(text.find('E'), text.size());
  const std::size_t whole = std::min(text.find('.'), mantissa);
  const std::size_t zeros = text.find_first_of("123456789");
  const double exponent = TextToNumber(text.substr(std::min(mantissa + 1, text.size())));
  return static_cast<double>(whole) - static_cast<double>(zeros) + exponent > 0;
}

// TextToNumber for any text. Not inlined, so that the usual case there stays fast.
[[gnu::noinline]] double LeadingNumber(std::string_view text) {
  std::string rest = UpperOf(text);
  std::erase_if(rest, [](char c) { return c == ' ' || c == '\t' || c == '\n'; });
  if (rest.starts_with('&')) return RadixNumber(std::string_view(rest).substr(1));
  const bool negative = rest.starts_with('-');
  if (negative || rest.starts_with('+')) rest.erase(0, 1);
  if (rest.find_first_of("0123456789.") != 0) return 0;  // from_chars also reads INF and NAN
  std::replace(rest.begin(), rest.end(), 'D', 'E');
  double number = 0;
  const auto read = std::from_chars(rest.data(), rest.data() + rest.size(), number);
  if (read.ec == std::errc::result_out_of_range)
    number = IsHuge({rest.data(), read.ptr}) ? Finite(HUGE_VAL) : 0;
  return negative ? -number : number;
}

constexpr double kPowersOfTen[] = {1,   1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7, 1e8,
                                   1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16};

// The whole number `number` * 10^zeros; its digits are read from the last to the first.
struct Digits {
  std::uint64_t number = 0;  // below 10^16
  std::size_t zeros = 0;

  char Last() const { return static_cast<char>('0' + (zeros > 0 ? 0 : number % 10)); }
  void DropLast() { zeros > 0 ? --zeros : number /= 10; }
};

// Returns number * 10^places, not negative, rounded to a whole number as FormatPicture rounds.
[[gnu::noinline]] Digits RoundExactly(double number, std::size_t places) {
  const auto [digits, exponent] = DecimalOf(number, 15);
  const int kept = exponent + 1 + static_cast<int>(places);
  if (kept < 0) return {};
  const auto keep = static_cast<std::size_t>(kept);
  const auto whole = static_cast<std::uint64_t>(TextToNumber(digits.substr(0, keep)));
  if (keep >= digits.size()) return {whole, keep - digits.size()};
  return {digits[keep] >= '5' ? whole + 1 : whole};
}

// Returns what RoundExactly returns, and calls it only if the number is large, or so close to a tie
// that the rounding to 15 digits, an error of at most 5e-15 of the number, could matter.
Digits Rounded(double number, std::size_t places) {
  constexpr double kMargin = 1e-13;
  const double scaled = places < std::size(kPowersOfTen) ? number * kPowersOfTen[places] : HUGE_VAL;
  if (!(scaled < 2e9)) return RoundExactly(Finite(number), places);
  const auto whole = static_cast<std::int32_t>(scaled);
  const double fraction = scaled - whole;
  if (std::fabs(fraction - 0.5) <= scaled * kMargin) return RoundExactly(number, places);
  return {static_cast<std::uint32_t>(whole + static_cast<int>(fraction > 0.5))};
}

}  // namespace

void PutPicture(std::string& text, std::size_t at, double number, const Picture& picture) {
  Digits digits = Rounded(std::fabs(number), picture.fractionPlaces);
  const bool minus = number < 0 && digits.number > 0;
  std::size_t count = 0;
  while (static_cast<double>(digits.number) >= kPowersOfTen[count]) ++count;
  std::size_t places = picture.fractionPlaces;
  const std::size_t whole = std::max(count + digits.zeros, picture.wholeZeros + places) - places;
  for (; places > picture.fractionZeros && digits.Last() == '0'; --places) digits.DropLast();
  const std::size_t length = (minus ? 1 : 0) + picture.head.size() + whole +
                             (picture.point ? 1 : 0) + places + picture.tail.size();
  if (text.size() < at + length) text.resize(at + length);

  char* to = text.data() + at + length;  // written from its end
  for (std::size_t i = picture.tail.size(); i > 0; --i) *--to = picture.tail[i - 1];
  for (std::size_t i = places; i > 0; --i, digits.DropLast()) *--to = digits.Last();
  if (picture.point) *--to = '.';
  for (std::size_t i = whole; i > 0; --i, digits.DropLast()) *--to = digits.Last();
  for (std::size_t i = picture.head.size(); i > 0; --i) *--to = picture.head[i - 1];
  if (minus) *--to = '-';
}

std::string FormatPicture(double number, std::string_view picture) {
  std::string text;
  PutPicture(text, 0, number, PictureOf(picture));
  return text;
}

double TextToNumber(std::string_view text) {
  if (text.size() > 15) return LeadingNumber(text);
  std::int64_t number = 0;  // a double represents 15 digits exactly
  for (const char c : text) {
    if (!IsDigit(c)) return LeadingNumber(text);
    number = number * 10 + (c - '0');
  }
  return static_cast<double>(number);
}

std::string NumberToText(double number) {
  return PlainText(number, 15);
}

std::string NumberToText(float number) {
  return PlainText(static_cast<double>(number), 7);
}
