#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"
#include "workspace/values/strings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(FormatPicture, RoundsTheDecimalTextAwayFromZero) {
  const struct {
    double x;
    const char *picture, *shown;
  } rows[] = {
      // clang-format off
      {12.5, "####0.00#", "12.50"}, {12.3456, "####0.00#", "12.346"}, {0, "####0.00#", "0.00"},
      {7.25, "##0.0", "7.3"}, {1.25, "0.0 deg", "1.3 deg"}, {1.25, "0.0deg", "1.3deg"},
      {359.96, "##0.0", "360.0"},  // a bearing doesn't wrap
      {9.95, "##0.0", "10.0"},     // the carry adds a digit
      {0.5, "0.000km ", "0.500km "}, {0.125, "0.00#km ", "0.125km "}, {0.5, "0.00#km ", "0.50km "},
      {0.125, "0.00km / ", "0.13km / "}, {1.25, "0.00#deg / ", "1.25deg / "},
      {1.005, "0.00km / ", "1.01km / "},  // the nearest double lies below the tie
      {1234, "###m", "1234m"}, {0.4, "###m", "m"}, {0.5, "###m", "1m"},
      {123456, "######", "123456"}, {0, "######", ""}, {1, "##", "1"},
      {51, "###.###", "51."}, {0.25, "###.###", ".25"}, {0, "###.###", "."},
      {-1.25, "####.###", "-1.25"}, {51.12345678, "###.######", "51.123457"},
      {-0.1, "####.######", "-.1"}, {51.5, "##0.000000", "51.500000"},
      {1.25, "###0.000000", "1.250000"}, {2.5, "##0", "3"}, {0, "#0", "0"},
      {5.5, "00.0000' ", "05.5000' "}, {59.99995, "00.0000' ", "60.0000' "}, {5, "00'", "05'"},
      {5.25, "00.0'' ", "05.3'' "}, {12, "####0.0", "12.0"}, {12, "(####0.0)", "(12.0)"},
      {-12.25, "(####0.0)", "-(12.3)"},  // the sign precedes the head
      {-0.04, "##0.0", "0.0"}, {-0.0004, "####.###", "."},  // no sign for a rounded zero
      {123456789012345678., "##0.0", "123456789012346000.0"},
      {1e-320, "0.00#deg / ", "0.00deg / "}, {std::nan(""), "##0.0", "0.0"},
      // clang-format on
  };
  for (const auto& [x, picture, shown] : rows)
    EXPECT_EQ(FormatPicture(x, picture), shown) << x << " under " << picture;
  EXPECT_EQ(FormatPicture(-kInfinity, "##0.0").size(), 1 + 309 + 2U);
}

std::int64_t PowerOfTen(int exponent) {
  return exponent == 0 ? 1 : 10 * PowerOfTen(exponent - 1);
}

// Returns digits / 10^places as a picture of fewer places lays it out, computed with integers.
std::string InIntegers(std::int64_t digits, int places, const Picture& picture) {
  const std::int64_t cut = PowerOfTen(places - static_cast<int>(picture.fractionPlaces));
  const std::int64_t rounded = (digits + cut / 2) / cut;
  std::string text = rounded == 0 ? "" : std::to_string(rounded);
  const std::size_t least = picture.wholeZeros + picture.fractionPlaces;
  if (text.size() < least) text.insert(0, least - text.size(), '0');
  std::string fraction = text.substr(text.size() - picture.fractionPlaces);
  text.resize(text.size() - picture.fractionPlaces);
  while (fraction.size() > picture.fractionZeros && fraction.back() == '0') fraction.pop_back();
  text.insert(0, picture.head).append(picture.point ? "." : "").append(fraction);
  return text.append(picture.tail);
}

// Numbers of 15 digits, half of them ties, and their neighbours, which have the same 15 digits.
TEST(FormatPicture, RoundsFifteenDigits) {
  const char* const pictures[] = {"####0.0",     "(####0.0)", "###m",      "##0.000000",
                                  "0.00#deg / ", "####.###",  "00'",       "######",
                                  "0.0000000",   "00000.##",  "no places", "."};
  std::mt19937_64 random(1);
  const int rounds = std::getenv("TARNWICK_DEEP") != nullptr ? 3'000'000 : 100'000;
  for (int round = 0; round < rounds; ++round) {
    const char* picture = pictures[random() % std::size(pictures)];
    const int places = static_cast<int>(7 + random() % 10);
    auto digits = static_cast<std::int64_t>(random() % 1'000'000'000'000'000);
    if (round % 4 == 0) digits /= PowerOfTen(static_cast<int>(random() % 15));
    const int cut = places - static_cast<int>(PictureOf(picture).fractionPlaces);
    if (round % 2 == 0 && cut > 0 && cut < 16)
      digits = digits / PowerOfTen(cut) * PowerOfTen(cut) + PowerOfTen(cut) / 2;
    double number =
        std::strtod((std::to_string(digits) + "e-" + std::to_string(places)).c_str(), nullptr);
    if (round % 3 == 0) number = std::nextafter(number, random() % 2 == 0 ? kInfinity : 0);
    ASSERT_EQ(FormatPicture(number, picture), InIntegers(digits, places, PictureOf(picture)))
        << std::hexfloat << number << " under " << picture;
  }
}

TEST(PutPicture, WritesOverTheText) {
  std::string text = "12345678";
  PutPicture(text, 2, -7.25, PictureOf("#0.0"));
  EXPECT_EQ(text, "12-7.378");
  PutPicture(text, 6, 123, PictureOf("#"));
  EXPECT_EQ(text, "12-7.3123");
}

TEST(TextToNumber, ReadsTheFrontOfAText) {
  const struct {
    std::string_view text;
    double number;
  } rows[] = {
      // clang-format off
      {"51.5N", 51.5}, {"\t12 \n34", 1234}, {"0 30", 30}, {"- 1 . 5", -1.5}, {"+.5", 0.5},
      {"1.2.3", 1.2}, {"1,5", 1}, {"12\r34", 12}, {std::string_view("1\0002", 3), 1},
      {"N51", 0}, {"", 0}, {".", 0}, {"--1", 0}, {"E5", 0},
      {"1E3", 1000}, {"1 d - 2", 0.01}, {"1.2E", 1.2}, {"1E+", 1}, {"51D30N", 51e30},
      {"123456789012345", 123456789012345}, {"1234567890123456", 1234567890123456}, {"007", 7},
      {"&H1F", 31}, {" &hffff", 65535}, {"&O178", 15}, {"&X1", 0}, {"&", 0},
      {"0.1000000000000000055511151231257827", 0.1},
      {"00000000000000000000000000000000000000000000000012", 12},
      {"1E400", std::numeric_limits<double>::max()}, {"1E-99999999999", 0}, {"0E999999", 0},
      {"-1E99999999999", std::numeric_limits<double>::lowest()},
      // clang-format on
  };
  for (const auto& [text, number] : rows) EXPECT_EQ(TextToNumber(text), number) << text;
  // Digits and exponent are each out of range, but the number is not.
  EXPECT_EQ(TextToNumber("1" + std::string(1000, '0') + "E-998"), 100);
  EXPECT_EQ(TextToNumber("." + std::string(1000, '0') + "5E1001"), 5);
  EXPECT_EQ(TextToNumber("&H" + std::string(1000, 'F')), std::numeric_limits<double>::max());
}

TEST(NumberToText, WritesAtMostFifteenDigits) {
  const struct {
    double number;
    const char* text;
  } rows[] = {
      // clang-format off
      {51.5, " 51.5"}, {0.5, " .5"}, {-0.5, "-.5"}, {-0.0, " 0"}, {100, " 100"}, {0.1 + 0.2, " .3"},
      {-5.0047119567, "-5.0047119567"}, {999999999999999, " 999999999999999"},
      {999999999999999.9, " 1E+15"}, {-1.5e-20, "-1.5E-20"},
      // clang-format on
  };
  for (const auto& [number, text] : rows) EXPECT_EQ(NumberToText(number), text);
  EXPECT_EQ(NumberToText(-1234.5678F), "-1234.568");
  EXPECT_EQ(NumberToText(0.1F), " .1");
  EXPECT_EQ(NumberToText(-1e-9F) + NumberToText(1e-10F), "-1E-09 1E-10");
}

TEST(NumberToText, IsReadBack) {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> mantissa(-10, 10);
  for (int round = 0; round < 20000; ++round) {
    const double number = mantissa(random) * std::pow(10.0, round % 601 - 300);
    const std::string text = NumberToText(number);
    ASSERT_NEAR(TextToNumber(text) / number, 1, 1e-14) << text;
    ASSERT_EQ(NumberToText(TextToNumber(text)), text);
    const auto single = static_cast<float>(mantissa(random) * std::pow(10.0, round % 61 - 30));
    ASSERT_NEAR(TextToNumber(NumberToText(single)) / static_cast<double>(single), 1, 1e-6);
  }
}

TEST(Integers, RoundToEvenAndSaturate) {
  EXPECT_EQ(RoundToInt16(1.5), 2);
  EXPECT_EQ(RoundToInt16(-2.5), -2);
  EXPECT_EQ(FloorToInt16(-2.1), -3);
  EXPECT_EQ(FloorToInt16(1e300), 32767);
  for (double number = -5; number < 5; number += 0.125) {
    EXPECT_EQ(RoundToInt32(number), std::nearbyint(number));
    EXPECT_EQ(FloorToInt16(number), std::floor(number));
  }
  EXPECT_EQ(RoundToInt32(std::nextafter(0.5, 0)), 0);
  EXPECT_EQ(RoundToInt32(-1e300), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(RoundToInt32(0x1p30 + 0.5), 0x40000000);
  EXPECT_EQ(RoundToInt16(-40000), -32768);
  EXPECT_EQ(RoundToInt16(std::nan("")), 0);
  EXPECT_EQ(RoundToInt32(kInfinity), 2147483647);
}

TEST(UpperOf, ReturnsTheCapitalIfThereIsOne) {
  const std::string raised =
      "abcdefghijklmnopqrstuvwxyz\x9A\x9C\x9E\xFF\xE0\xE1\xE2\xE3\xE4\xE5\xE6\xE7\xE8\xE9\xEA\xEB"
      "\xEC\xED\xEE\xEF\xF0\xF1\xF2\xF3\xF4\xF5\xF6\xF8\xF9\xFA\xFB\xFC\xFD\xFE";
  const std::string capitals =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZ\x8A\x8C\x8E\x9F\xC0\xC1\xC2\xC3\xC4\xC5\xC6\xC7\xC8\xC9\xCA\xCB"
      "\xCC\xCD\xCE\xCF\xD0\xD1\xD2\xD3\xD4\xD5\xD6\xD8\xD9\xDA\xDB\xDC\xDD\xDE";
  for (int code = 0; code < 256; ++code) {
    const std::string text(1, CharOf(code));
    const std::size_t at = raised.find(text);
    EXPECT_EQ(UpperOf(text), at == std::string::npos ? text : capitals.substr(at, 1)) << code;
  }
}

}  // namespace
