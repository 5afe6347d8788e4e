#include "geo/trigonometry.h"

#include <cmath>
#include <cstdint>

namespace {

// Below this the first term of the series is the whole result.
constexpr double kTiny = 0x1p-27;

// An unevaluated sum, for what a double alone would cut off.
struct Sum {
  double high, low;
};

constexpr Sum kQuarterTurn = {0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54};

// An angle as quarter turns and a remainder of an eighth of a turn at most.
struct Reduced {
  unsigned quarters;
  Sum angle;
};

// The angle less its quarter turns, of which two pieces are short enough to be multiplied without
// rounding (Cody and Waite).
Reduced ReduceUsual(double angle) {
  constexpr double kPieces[] = {0x1.921fb544p+0, 0x1.0b4611a6p-34, 0x1.3198a2e037073p-69};
  constexpr double kTwoOverPi = 0x1.45f306dc9c883p-1;
  const auto quarters = static_cast<int>(angle * kTwoOverPi + (angle < 0 ? -0.5 : 0.5));
  const double first = angle - quarters * kPieces[0];
  const double second = quarters * kPieces[1];
  const double rest = first - second;
  // What the subtraction rounded off, whichever of the two was the larger.
  const double taken = first - rest;
  const double cut = (first - (rest + taken)) + (taken - second);
  const double last = cut - quarters * kPieces[2];
  const double high = rest + last;
  return {static_cast<unsigned>(quarters), {high, (rest - high) + last}};
}

// The product of two doubles with what rounding takes from it (Veltkamp and Dekker).
Sum Product(double a, double b) {
  constexpr double kSplit = 0x1p27 + 1;
  const double aHigh = a * kSplit - (a * kSplit - a);
  const double bHigh = b * kSplit - (b * kSplit - b);
  const double aLow = a - aHigh;
  const double bLow = b - bHigh;
  const double product = a * b;
  return {product, ((aHigh * bHigh - product) + aHigh * bLow + aLow * bHigh) + aLow * bLow};
}

// 192 binary digits of 2 / pi from the one of that number on, counted behind 64 zeros.
struct Digits {
  std::uint64_t word[3];
};

Digits DigitsOfTwoOverPi(int from) {
  static constexpr std::uint64_t kTwoOverPi[] = {
      0x0000000000000000, 0xa2f9836e4e441529, 0xfc2757d1f534ddc0, 0xdb6295993c439041,
      0xfe5163abdebbc561, 0xb7246e3a424dd2e0, 0x06492eea09d1921c, 0xfe1deb1cb129a73e,
      0xe88235f52ebb4484, 0xe99c7026b45f7e41, 0x3991d639835339f4, 0x9c845f8bbdf9283b,
      0x1ff897ffde05980f, 0xef2f118b5a0a6d1f, 0x6d367ecf27cb09b7, 0x4f463f669e5fea2d,
      0x7527bac7ebe5f17b, 0x3d0739f78a5292ea, 0x6bfb5fb11f8d5d08, 0x56033046fc7b6bab};
  const std::uint64_t* at = kTwoOverPi + from / 64;
  const int shift = from % 64;
  Digits digits{};
  for (std::uint64_t& word : digits.word) {
    word = *at << shift;
    ++at;
    if (shift > 0) word |= *at >> (64 - shift);
  }
  return digits;
}

// The product with 2 / pi in whole numbers, without the digits that only count full turns (Payne
// and Hanek).
Reduced ReduceHuge(double angle) {
  using Wide = unsigned __int128;
  int exponent = 0;
  const double fraction = std::frexp(std::fabs(angle), &exponent);
  const Wide mantissa = static_cast<std::uint64_t>(fraction * 0x1p53);
  const auto [word] = DigitsOfTwoOverPi(exponent - 53 - 2 + 64);
  const Wide low = mantissa * word[2];
  const Wide middle = mantissa * word[1] + (low >> 64);
  const Wide turn = (mantissa * word[0] << 64) + middle;  // 128 digits of the part of a turn
  // Of the quarter turn to the nearest, in two's complement.
  const auto part = static_cast<__int128>(turn << 2) >> 2;
  const auto high = static_cast<double>(part);
  const auto beyond = static_cast<double>(part - static_cast<__int128>(high));
  Sum rest = Product(high * 0x1p-126, kQuarterTurn.high);
  rest.low += high * 0x1p-126 * kQuarterTurn.low + beyond * 0x1p-126 * kQuarterTurn.high;
  const auto quarters = static_cast<unsigned>(turn >> 126) + (part < 0 ? 1 : 0);
  if (angle > 0) return {quarters, rest};
  return {0 - quarters, {-rest.high, -rest.low}};
}

Reduced Reduce(double angle) {
  if (std::fabs(angle) <= 0.785) return {0, {angle, 0}};
  if (std::fabs(angle) < 0x1p20) return ReduceUsual(angle);
  if (std::isfinite(angle)) return ReduceHuge(angle);
  return {0, {angle - angle, 0}};
}

// The sum of c[i] z^i, in pairs, since a sum from one end to the other waits for each step.
double Series(const double (&c)[8], double z) {
  const double z2 = z * z;
  const double z4 = z2 * z2;
  return (c[0] + c[1] * z) + (c[2] + c[3] * z) * z2 +
         ((c[4] + c[5] * z) + (c[6] + c[7] * z) * z2) * z4;
}

// Taylor's series of an angle of an eighth of a turn at most.
double SineSeries(Sum angle) {
  static constexpr double kOfSine[] = {
      -1 / 6.0,        1 / 120.0,        -1 / 5040.0,          1 / 362880.0,
      -1 / 39916800.0, 1 / 6227020800.0, -1 / 1307674368000.0, 1 / 355687428096000.0};
  const double x = angle.high;
  const double z = x * x;
  return x + (x * z * Series(kOfSine, z) + angle.low * (1 - z / 2));
}

double CosineSeries(Sum angle) {
  static constexpr double kOfCosine[] = {
      1 / 24.0,        -1 / 720.0,         1 / 40320.0,          -1 / 3628800.0,
      1 / 479001600.0, -1 / 87178291200.0, 1 / 20922789888000.0, -1 / 6402373705728000.0};
  const double x = angle.high;
  const double z = x * x;
  const double half = z / 2;
  const double start = 1 - half;
  return start + (((1 - start) - half) + (z * z * Series(kOfCosine, z) - x * angle.low));
}

// What the arctangent of an eighth at most lacks to its argument.
double ArctangentSeries(double x) {
  static constexpr double kOfArctangent[] = {-1 / 3.0,  1 / 5.0,  -1 / 7.0,  1 / 9.0,
                                             -1 / 11.0, 1 / 13.0, -1 / 15.0, 1 / 17.0};
  const double z = x * x;
  return x * z * Series(kOfArctangent, z);
}

}  // namespace

double Sine(double angle) {
  if (std::fabs(angle) < kTiny) return angle;
  const Reduced reduced = Reduce(angle);
  const double size =
      reduced.quarters % 2 == 0 ? SineSeries(reduced.angle) : CosineSeries(reduced.angle);
  return reduced.quarters % 4 < 2 ? size : -size;
}

double Cosine(double angle) {
  const Reduced reduced = Reduce(angle);
  const double size =
      reduced.quarters % 2 == 0 ? CosineSeries(reduced.angle) : SineSeries(reduced.angle);
  return (reduced.quarters + 1) % 4 < 2 ? size : -size;
}

double Tangent(double angle) {
  return Sine(angle) / Cosine(angle);
}

// The nearest eighth is taken off by the theorem of addition.
double Arctangent(double ratio) {
  static constexpr Sum kOfEighths[] = {
      {0, 0},
      {0x1.fd5ba9aac2f6ep-4, -0x1.cd37686760c17p-59},
      {0x1.f5b75f92c80ddp-3, 0x1.8ab6e3cf7afbdp-57},
      {0x1.6f61941e4def1p-2, -0x1.c63aae6f6e918p-56},
      {0x1.dac670561bb4fp-2, 0x1.a2b7f222f65e2p-56},
      {0x1.1e00babdefeb4p-1, -0x1.928df287a668fp-58},
      {0x1.4978fa3269ee1p-1, 0x1.2419a87f2a458p-56},
      {0x1.700a7c5784634p-1, -0x1.8c34d25aadef6p-56},
      {0x1.921fb54442d18p-1, 0x1.1a62633145c07p-55},
  };
  if (ratio < 0) return -Arctangent(-ratio);
  if (ratio > 1) return kQuarterTurn.high - (Arctangent(1 / ratio) - kQuarterTurn.low);
  if (!(ratio >= kTiny)) return ratio;
  if (ratio < 0.125) return ratio + ArctangentSeries(ratio);
  const auto eighths = static_cast<int>(std::floor(ratio * 8 + 0.5));
  const double rest = (ratio - eighths / 8.0) / (1 + ratio * eighths / 8.0);
  const Sum& start = kOfEighths[eighths];
  return start.high + (rest + (start.low + ArctangentSeries(rest)));
}
