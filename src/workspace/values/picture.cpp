#include "workspace/values/picture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <optional>

#include "workspace/values/decimal.h"
#include "workspace/values/rounding.h"

namespace {

// The digits of size * 10^places, rounded to a whole number as PutPicture rounds; empty for 0.
std::string ExactDigits(double size, int places) {
  Decimal decimal = DecimalOf(size, 15);
  const int kept = decimal.exponent + 1 + places;
  if (kept < 0) return {};
  const auto keep = static_cast<std::size_t>(kept);
  std::string& digits = decimal.digits;
  const bool up = keep < digits.size() && digits[keep] >= '5';
  digits.resize(keep, '0');
  if (up) {
    std::size_t at = keep;
    while (at > 0 && digits[at - 1] == '9') digits[--at] = '0';
    if (at > 0)
      ++digits[at - 1];
    else
      digits.insert(0, 1, '1');
  }
  digits.erase(0, digits.find_first_not_of('0'));
  return digits;
}

// size * 10^places, rounded to a whole number; nothing if it is large or so close to a tie that the
// cut to 15 significant digits, which moves it by at most 5e-15 of its size, could matter.
std::optional<std::uint32_t> RoundIfUnambiguous(double size, std::size_t places) {
  static constexpr double kPowersOfTen[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
  constexpr double kMargin = 1e-13;
  if (places >= std::size(kPowersOfTen)) return {};
  const double scaled = size * kPowersOfTen[places];
  if (!(scaled < 2e9)) return {};
  const auto whole = static_cast<std::int32_t>(scaled);
  const double fraction = scaled - whole;
  if (std::fabs(fraction - 0.5) <= scaled * kMargin) return {};
  return static_cast<std::uint32_t>(whole + static_cast<int>(fraction > 0.5));
}

// Two sources of decimal digits, a number and a text. Both supply the last digit first, and zeros
// after the first digit has been dropped. PlacesFrom returns the number of digits, but at least
// `least`.
struct NumberDigits {
  std::uint32_t number;
  bool IsZero() const { return number == 0; }
  std::size_t PlacesFrom(std::size_t least) const {
    static constexpr std::uint32_t kPowersOfTen[] = {
        1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000, 1'000'000'000};
    while (least < std::size(kPowersOfTen) && number >= kPowersOfTen[least]) ++least;
    return least;
  }
  char Last() const { return static_cast<char>('0' + number % 10); }
  void DropLast() { number /= 10; }
};
struct TextDigits {
  std::string_view text;
  bool IsZero() const { return text.empty(); }
  std::size_t PlacesFrom(std::size_t least) const { return std::max(text.size(), least); }
  char Last() const { return text.empty() ? '0' : text.back(); }
  void DropLast() { text.remove_suffix(text.empty() ? 0 : 1); }
};

// Writes a rounded number as PutPicture does: `digits` down to the last fraction place.
template <class Digits>
void PutDigits(std::string& text, std::size_t at, bool minus, Digits digits,
               const Picture& picture) {
  minus = minus && !digits.IsZero();
  std::size_t places = picture.fractionPlaces;
  const std::size_t wholePlaces = digits.PlacesFrom(picture.wholeZeros + places) - places;
  for (; places > picture.fractionZeros && digits.Last() == '0'; --places) digits.DropLast();
  const std::size_t numberLength = wholePlaces + (picture.point ? 1 : 0) + places;
  const std::size_t length =
      (minus ? 1 : 0) + picture.head.size() + numberLength + picture.tail.size();
  if (text.size() < at + length) text.resize(at + length);

  char* to = text.data() + at;
  if (minus) *to++ = '-';
  for (const char c : picture.head) *to++ = c;
  char* end = to + numberLength;
  char* digit = end;
  for (; places > 0; --places, digits.DropLast()) *--digit = digits.Last();
  if (picture.point) *--digit = '.';
  for (; digit != to; digits.DropLast()) *--digit = digits.Last();
  for (const char c : picture.tail) *end++ = c;
}

// PutPicture for any number: writes the 15 significant digits first and rounds that text.
[[gnu::noinline]] void PutExactly(std::string& text, std::size_t at, double number,
                                  const Picture& picture) {
  number = Finite(number);
  const std::string digits =
      ExactDigits(std::fabs(number), static_cast<int>(picture.fractionPlaces));
  PutDigits(text, at, number < 0, TextDigits{digits}, picture);
}

}  // namespace

void PutPicture(std::string& text, std::size_t at, double number, const Picture& picture) {
  const auto rounded = RoundIfUnambiguous(std::fabs(number), picture.fractionPlaces);
  if (rounded)
    PutDigits(text, at, number < 0, NumberDigits{*rounded}, picture);
  else
    PutExactly(text, at, number, picture);
}

std::string FormatPicture(double number, std::string_view picture) {
  std::string text;
  PutPicture(text, 0, number, PictureOf(picture));
  return text;
}
