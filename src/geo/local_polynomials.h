// Approximates smooth functions over a rectangle by polynomials, for work on many places that lie
// close together. Making the polynomials takes as long as 15 calls of the functions; evaluating
// them at a place takes a small part of one call.
//
// Newton's interpolation by divided differences, in two variables; source: M. Gasca, T. Sauer,
// "Polynomial interpolation in several variables", Adv. Comput. Math. 12 (2000).
#pragma once

#include <array>
#include <cstddef>
#include <functional>

// The total degree of the polynomials in x and y.
inline constexpr std::size_t kPolynomialDegree = 4;

// The values of all functions at one place; an even number fills vector registers.
using FunctionValues = std::array<double, 6>;
using Functions = std::function<FunctionValues(double x, double y)>;

struct Rectangle {
  double x = 0, y = 0;  // the lower left corner
  double width = 0, height = 0;
};

struct LocalPolynomials {
  Rectangle area;
  // The factors of Newton's products, by the degree in x and then in y; those of a total degree
  // above kPolynomialDegree are not used.
  std::array<std::array<FunctionValues, kPolynomialDegree + 1>, kPolynomialDegree + 1> factors{};
};

// Returns polynomials that agree with the functions at 15 points of a rectangle. Their error
// elsewhere depends on the functions; the caller must know a bound on the error.
LocalPolynomials Interpolate(const Rectangle& area, const Functions& functions);

// Returns the values of the polynomials at a place in the rectangle.
FunctionValues ValuesAt(const LocalPolynomials& polynomials, double x, double y);
