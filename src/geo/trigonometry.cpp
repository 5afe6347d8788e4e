#include "geo/trigonometry.h"

#include <cmath>

namespace {

// Below this the first term of the series is the whole result.
constexpr double kTiny = 0x1p-27;

// An unevaluated sum of two doubles, with about twice the precision of one.
struct DoubleDouble {
  double high, low;
};

constexpr DoubleDouble kQuarterTurn = {0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54};

// An angle as quarter turns and a remainder of an eighth of a turn at most.
struct Reduced {
  unsigned quarters;
  DoubleDouble angle;
};

// Subtracts the quarter turns from an angle below 2^20 radians. The first two parts of a quarter
// turn are short enough that their products are exact (Cody and Waite).
Reduced ReduceCodyWaite(double angle) {
  constexpr double kPieces[] = {0x1.921fb544p+0, 0x1.0b4611a6p-34, 0x1.3198a2e037073p-69};
  constexpr double kTwoOverPi = 0x1.45f306dc9c883p-1;
  const auto quarters = static_cast<int>(angle * kTwoOverPi + (angle < 0 ? -0.5 : 0.5));
  const double first = angle - quarters * kPieces[0];
  const double second = quarters * kPieces[1];
  const double rest = first - second;
  // The rounding error of the subtraction, whichever operand is the larger (Knuth's TwoSum).
  const double taken = first - rest;
  const double cut = (first - (rest + taken)) + (taken - second);
  const double last = cut - quarters * kPieces[2];
  const double high = rest + last;
  return {static_cast<unsigned>(quarters), {high, (rest - high) + last}};
}

Reduced Reduce(double angle) {
  constexpr double kFullTurn = 4 * kQuarterTurn.high;
  if (std::fabs(angle) <= 0.785) return {0, {angle, 0}};
  if (std::fabs(angle) < 0x1p20) return ReduceCodyWaite(angle);
  if (!std::isfinite(angle)) return {0, {angle - angle, 0}};
  // The result drifts from the exact sine but is the same on every system, because fmod is exact.
  return ReduceCodyWaite(std::fmod(angle, kFullTurn));
}

// Returns the sum of c[i] z^i, added in pairs that are independent (Estrin's scheme), for speed.
double Series(const double (&c)[8], double z) {
  const double z2 = z * z;
  const double z4 = z2 * z2;
  return (c[0] + c[1] * z) + (c[2] + c[3] * z) * z2 +
         ((c[4] + c[5] * z) + (c[6] + c[7] * z) * z2) * z4;
}

// Taylor series, for angles up to an eighth of a turn.
double SineSeries(DoubleDouble angle) {
  static constexpr double kOfSine[] = {
      -1 / 6.0,        1 / 120.0,        -1 / 5040.0,          1 / 362880.0,
      -1 / 39916800.0, 1 / 6227020800.0, -1 / 1307674368000.0, 1 / 355687428096000.0};
  const double x = angle.high;
  const double z = x * x;
  return x + (x * z * Series(kOfSine, z) + angle.low * (1 - z / 2));
}

double CosineSeries(DoubleDouble angle) {
  static constexpr double kOfCosine[] = {
      1 / 24.0,        -1 / 720.0,         1 / 40320.0,          -1 / 3628800.0,
      1 / 479001600.0, -1 / 87178291200.0, 1 / 20922789888000.0, -1 / 6402373705728000.0};
  const double x = angle.high;
  const double z = x * x;
  const double half = z / 2;
  const double start = 1 - half;
  return start + (((1 - start) - half) + (z * z * Series(kOfCosine, z) - x * angle.low));
}

// atan(x) - x for |x| <= 1/8.
double ArctangentSeries(double x) {
  static constexpr double kOfArctangent[] = {-1 / 3.0,  1 / 5.0,  -1 / 7.0,  1 / 9.0,
                                             -1 / 11.0, 1 / 13.0, -1 / 15.0, 1 / 17.0};
  const double z = x * x;
  return x * z * Series(kOfArctangent, z);
}

// The sine of an angle of at most an eighth of a turn, plus a number of quarter turns.
double SineFrom(unsigned quarters, DoubleDouble angle) {
  const double sine = quarters % 2 == 0 ? SineSeries(angle) : CosineSeries(angle);
  return quarters % 4 < 2 ? sine : -sine;
}

}  // namespace

double Sine(double angle) {
  if (std::fabs(angle) < kTiny) return angle;
  const Reduced reduced = Reduce(angle);
  return SineFrom(reduced.quarters, reduced.angle);
}

double Cosine(double angle) {
  const Reduced reduced = Reduce(angle);
  return SineFrom(reduced.quarters + 1, reduced.angle);
}

// Uses atan(x) = atan(e) + atan((x - e) / (1 + x e)), where e is the multiple of 1/8 closest to x.
double Arctangent(double ratio) {
  static constexpr DoubleDouble kOfEighths[] = {
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
  const DoubleDouble& start = kOfEighths[eighths];
  return start.high + (rest + (start.low + ArctangentSeries(rest)));
}
