#include "geo/local_polynomials.h"

#include <numbers>

#include "geo/trigonometry.h"

namespace {

constexpr std::size_t kDegree = kPolynomialDegree;
using Polynomials = std::array<double, kDegree + 1>;

// The Chebyshev polynomials of degree 0 to kDegree at t from -1 to 1.
Polynomials ChebyshevAt(double t) {
  Polynomials values{1, t};
  for (std::size_t i = 2; i <= kDegree; ++i) values[i] = 2 * t * values[i - 1] - values[i - 2];
  return values;
}

// Map a coordinate on a side of the rectangle to the interval from -1 to 1, and back.
double ToUnit(double start, double length, double at) {
  return (at - start) * (2 / length) - 1;
}
double FromUnit(double start, double length, double t) {
  return start + (t + 1) / 2 * length;
}

// Extremum number `i` of the Chebyshev polynomial of a degree.
double ExtremumAt(std::size_t i, std::size_t degree) {
  return Cosine(std::numbers::pi * static_cast<double>(i) / static_cast<double>(degree));
}

// Adds to all coefficients the terms of one Padua point at (u, v), each from -1 to 1.
void AddPoint(LocalPolynomials& polynomials, const FunctionValues& values, double weight, double u,
              double v) {
  const Polynomials inX = ChebyshevAt(u);
  const Polynomials inY = ChebyshevAt(v);
  auto coefficient = polynomials.coefficients.begin();
  for (std::size_t i = 0; i <= kDegree; ++i) {
    for (std::size_t j = 0; i + j <= kDegree; ++j, ++coefficient) {
      const double norm = i == kDegree ? 1 : (i == 0 ? 1 : 2) * (j == 0 ? 1 : 2);
      const double factor = weight * norm * inX[i] * inY[j];
      for (std::size_t k = 0; k < values.size(); ++k) (*coefficient)[k] += values[k] * factor;
    }
  }
}

}  // namespace

LocalPolynomials Interpolate(const Rectangle& over, const Functions& functions) {
  LocalPolynomials polynomials{over};
  constexpr double kFullWeight = 2.0 / (kDegree * (kDegree + 1));
  for (std::size_t i = 0; i <= kDegree; ++i) {
    const double u = ExtremumAt(i, kDegree);
    for (std::size_t j = i % 2; j <= kDegree + 1; j += 2) {
      const double v = ExtremumAt(j, kDegree + 1);
      double weight = kFullWeight;  // half of it on a side, a quarter in a corner
      if (i == 0 || i == kDegree) weight /= 2;
      if (j == 0 || j == kDegree + 1) weight /= 2;
      const FunctionValues values =
          functions(FromUnit(over.x, over.width, u), FromUnit(over.y, over.height, v));
      AddPoint(polynomials, values, weight, u, v);
    }
  }
  return polynomials;
}

FunctionValues ValuesAt(const LocalPolynomials& polynomials, double x, double y) {
  const Rectangle& over = polynomials.over;
  const Polynomials inX = ChebyshevAt(ToUnit(over.x, over.width, x));
  const Polynomials inY = ChebyshevAt(ToUnit(over.y, over.height, y));
  FunctionValues sum{};
  auto coefficient = polynomials.coefficients.begin();
#pragma GCC unroll 8
  for (std::size_t i = 0; i <= kDegree; ++i) {
    FunctionValues inner{};  // the sum over y
#pragma GCC unroll 8
    for (std::size_t j = 0; i + j <= kDegree; ++j, ++coefficient)
      for (std::size_t k = 0; k < sum.size(); ++k) inner[k] += (*coefficient)[k] * inY[j];
    for (std::size_t k = 0; k < sum.size(); ++k) sum[k] += inner[k] * inX[i];
  }
  return sum;
}
