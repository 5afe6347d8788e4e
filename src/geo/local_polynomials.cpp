#include "geo/local_polynomials.h"

#include <cmath>
#include <numbers>

#include "geo/trigonometry.h"

namespace {

constexpr std::size_t kTerms = kPatchDegree + 1;
using Polynomials = std::array<double, kTerms>;

// The Chebyshev polynomials of degree 0 to kPatchDegree at t from -1 to 1.
Polynomials ChebyshevAt(double t) {
  Polynomials values{1, t};
  for (std::size_t i = 2; i < kTerms; ++i) values[i] = 2 * t * values[i - 1] - values[i - 2];
  return values;
}

// From -1 to 1 along one side.
double Along(double start, double length, double at) {
  return (at - start) * (2 / length) - 1;
}

// The place of t from -1 to 1.
double PlaceOf(double start, double length, double t) {
  return start + (t + 1) / 2 * length;
}

double Node(std::size_t i) {
  return Cosine(std::numbers::pi * (static_cast<double>(i) + 0.5) / kTerms);
}

void AddNode(Patch& patch, const PatchValues& values, double u, double v) {
  const Polynomials inX = ChebyshevAt(u);
  const Polynomials inY = ChebyshevAt(v);
  auto coefficient = patch.coefficients.begin();
  for (std::size_t i = 0; i < kTerms; ++i) {
    for (std::size_t j = 0; i + j < kTerms; ++j, ++coefficient) {
      const double weight =
          inX[i] * inY[j] * (i == 0 ? 1 : 2) * (j == 0 ? 1 : 2) / (kTerms * kTerms);
      for (std::size_t k = 0; k < kPatchValues; ++k) (*coefficient)[k] += values[k] * weight;
    }
  }
}

bool IsClose(const PatchValues& one, const PatchValues& other, const PatchValues& tolerances) {
  for (std::size_t k = 0; k < kPatchValues; ++k)
    if (!(std::fabs(one[k] - other[k]) <= tolerances[k] / 4)) return false;
  return true;
}

}  // namespace

bool MakePatch(Rectangle over, const PatchFunctions& functions, const PatchValues& tolerances,
               Patch& patch) {
  patch = {over, {}};
  const auto at = [&](double u, double v) {
    return functions(PlaceOf(over.x, over.width, u), PlaceOf(over.y, over.height, v));
  };
  for (std::size_t i = 0; i < kTerms; ++i)
    for (std::size_t j = 0; j < kTerms; ++j) AddNode(patch, at(Node(i), Node(j)), Node(i), Node(j));
  for (const double u : {-1.0, -0.5, 0.0, 0.5, 1.0}) {
    for (const double v : {-1.0, -0.5, 0.0, 0.5, 1.0}) {
      const PatchValues patched =
          ValuesAt(patch, PlaceOf(over.x, over.width, u), PlaceOf(over.y, over.height, v));
      if (!IsClose(patched, at(u, v), tolerances)) return false;
    }
  }
  return true;
}

PatchValues ValuesAt(const Patch& patch, double x, double y) {
  const Polynomials inX = ChebyshevAt(Along(patch.over.x, patch.over.width, x));
  const Polynomials inY = ChebyshevAt(Along(patch.over.y, patch.over.height, y));
  PatchValues sum{};
  auto coefficient = patch.coefficients.begin();
  for (std::size_t i = 0; i < kTerms; ++i) {
    for (std::size_t j = 0; i + j < kTerms; ++j, ++coefficient) {
      const double product = inX[i] * inY[j];
      for (std::size_t k = 0; k < kPatchValues; ++k) sum[k] += (*coefficient)[k] * product;
    }
  }
  return sum;
}
