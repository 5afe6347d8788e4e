#include "geo/local_polynomials.h"

namespace {

constexpr std::size_t kDegree = kPolynomialDegree;

// The coordinates of the points on an axis from -1 to 1. A point has the i-th in x and the j-th in
// y for i + j <= kDegree, so the first ones are used most. Found by trial: a listing's errors are
// as small with them as with the best published points.
constexpr std::array<double, kDegree + 1> kNodes = {-0.88, 0.88, 0, 0.5, -0.5};

// Returns Newton's products (t - kNodes[0]) ... (t - kNodes[i - 1]), i from 0 to kDegree. t is the
// coordinate, scaled from the side of the rectangle to the interval from -1 to 1.
std::array<double, kDegree + 1> ProductsAt(double start, double length, double coordinate) {
  const double t = (coordinate - start) * (2 / length) - 1;
  std::array<double, kDegree + 1> products{1};
  for (std::size_t i = 0; i < kDegree; ++i) products[i + 1] = products[i] * (t - kNodes[i]);
  return products;
}

// Replaces the values at the points of an axis by their divided differences; at(i, j) is the value
// at the i-th point of this axis and the j-th of the other.
void DivideDifferences(const auto& at) {
  for (std::size_t order = 1; order <= kDegree; ++order) {
    for (std::size_t i = kDegree; i >= order; --i) {
      for (std::size_t j = 0; i + j <= kDegree; ++j)
        for (std::size_t k = 0; k < FunctionValues{}.size(); ++k)
          at(i, j)[k] = (at(i, j)[k] - at(i - 1, j)[k]) / (kNodes[i] - kNodes[i - order]);
    }
  }
}

}  // namespace

LocalPolynomials Interpolate(const Rectangle& area, const Functions& functions) {
  LocalPolynomials polynomials{area};
  auto& factors = polynomials.factors;
  for (std::size_t i = 0; i <= kDegree; ++i) {
    for (std::size_t j = 0; i + j <= kDegree; ++j)
      factors[i][j] = functions(area.x + (kNodes[i] + 1) / 2 * area.width,
                                area.y + (kNodes[j] + 1) / 2 * area.height);
  }
  DivideDifferences([&](std::size_t i, std::size_t j) -> auto& { return factors[i][j]; });
  DivideDifferences([&](std::size_t i, std::size_t j) -> auto& { return factors[j][i]; });
  return polynomials;
}

FunctionValues ValuesAt(const LocalPolynomials& polynomials, double x, double y) {
  const Rectangle& area = polynomials.area;
  const auto inX = ProductsAt(area.x, area.width, x);
  const auto inY = ProductsAt(area.y, area.height, y);
  FunctionValues sum{};
#pragma GCC unroll 8
  for (std::size_t i = 0; i <= kDegree; ++i) {
    FunctionValues inner{};  // the sum over y
#pragma GCC unroll 8
    for (std::size_t j = 0; i + j <= kDegree; ++j)
      for (std::size_t k = 0; k < sum.size(); ++k)
        inner[k] += polynomials.factors[i][j][k] * inY[j];
    for (std::size_t k = 0; k < sum.size(); ++k) sum[k] += inner[k] * inX[i];
  }
  return sum;
}
