// Approximates smooth functions over a rectangle by polynomials, for work on many places that lie
// close together. Making the polynomials takes as long as 15 calls of the functions; evaluating
// them at a place takes a small part of one call.
//
// Interpolation at the Padua points in Chebyshev polynomials; source: M. Caliari, S. De Marchi,
// M. Vianello, "Bivariate Lagrange interpolation at the Padua points: computational aspects",
// J. Comput. Appl. Math. 221 (2008).
#pragma once

#include <array>
#include <cstddef>
#include <functional>

// The total degree of the polynomials in x and y.
inline constexpr std::size_t kPolynomialDegree = 4;

// The values of all functions at one place; an even number of them fills vector registers.
using FunctionValues = std::array<double, 6>;
using Functions = std::function<FunctionValues(double x, double y)>;

struct Rectangle {
  double x = 0, y = 0;  // the lower left corner
  double width = 0, height = 0;
};

struct LocalPolynomials {
  Rectangle over;
  // The factors of the products of Chebyshev polynomials, by the degree in x and then in y.
  std::array<FunctionValues, (kPolynomialDegree + 1) * (kPolynomialDegree + 2) / 2> coefficients{};
};

// Returns the polynomials that agree with the functions at the Padua points of a rectangle. Their
// error elsewhere depends on the functions; the caller must know a bound on the error.
LocalPolynomials Interpolate(const Rectangle& over, const Functions& functions);

// Returns the values of the polynomials at a place in the rectangle.
FunctionValues ValuesAt(const LocalPolynomials& polynomials, double x, double y);
