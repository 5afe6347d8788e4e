// Smooth functions over a rectangle as polynomials, for work on many places that lie close
// together: a patch takes as long to make as a hundred places by the plain formulas, and then a
// hundredth of their time for each. Chebyshev interpolation; source: L. N. Trefethen,
// "Approximation Theory and Approximation Practice", chapters 3 and 4.
#pragma once

#include <array>
#include <functional>

// The functions that a patch approximates side by side.
inline constexpr std::size_t kPatchValues = 6;
// Their values at one place, or what belongs to each of them.
using PatchValues = std::array<double, kPatchValues>;
using PatchFunctions = std::function<PatchValues(double x, double y)>;

// The rectangle over which a patch holds.
struct Rectangle {
  double x = 0, y = 0, width = 0, height = 0;  // x and y of its lower left corner
};

// Of the polynomials, in x and y together.
inline constexpr std::size_t kPatchDegree = 5;

// The polynomials that stand for the functions over a rectangle.
struct Patch {
  Rectangle over;
  // Of the products of Chebyshev polynomials in x and y, by the degree in x and then in y, up to
  // kPatchDegree in both together.
  std::array<PatchValues, (kPatchDegree + 1) * (kPatchDegree + 2) / 2> coefficients;
};

// False if some value is off by more than a quarter of its tolerance in one of 25 places: the rest
// that a polynomial of this degree leaves is largest, or close to it, in these.
[[nodiscard]] bool MakePatch(Rectangle over, const PatchFunctions& functions,
                             const PatchValues& tolerances, Patch& patch);

// The values at a place in the rectangle.
PatchValues ValuesAt(const Patch& patch, double x, double y);
