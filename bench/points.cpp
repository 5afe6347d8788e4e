// Nanoseconds a point for a million points from the National Grid to WGS84 and back: by the plain
// engine, and by patches as a listing has them.
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>
#include <vector>

#include "geo/grid_reference.h"
#include "geo/local_polynomials.h"
#include "geo/national_grid.h"

namespace {

struct Point {
  double x, y;
};

template <class Conversion>
double MedianNanoseconds(const std::vector<Point>& from, std::vector<Point>& to,
                         Conversion convert) {
  std::array<double, 5> runs{};
  for (double& run : runs) {
    const auto start = std::chrono::steady_clock::now();
    for (std::size_t i = 0; i < from.size(); ++i) to[i] = convert(from[i]);
    const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
    run = taken.count() / static_cast<double>(from.size());
  }
  std::sort(runs.begin(), runs.end());
  return runs[2];
}

PatchValues ToPlace(double x, double y) {
  PatchValues values{};
  GridToWGS84(x, y, values[1], values[0]);
  return values;
}

PatchValues ToGrid(double x, double y) {
  PatchValues values{};
  WGS84ToGrid(y, x, values[0], values[1]);
  return values;
}

// The patch of a square is made when its first point comes; that is part of the time.
struct Patches {
  PatchValues (*functions)(double, double);
  double width, height;
  PatchValues tolerances;
  std::array<std::unique_ptr<Patch>, 400> squares{};

  Point operator()(Point point) {
    const double column = std::floor(point.x / width);
    const double row = std::floor(point.y / height);
    auto& square =
        squares[static_cast<std::size_t>(column + 10) * 20 + static_cast<std::size_t>(row) % 20];
    if (square == nullptr) {
      square = std::make_unique<Patch>();
      if (!MakePatch({column * width, row * height, width, height}, functions, tolerances, *square))
        std::puts("no patch");
    }
    const PatchValues values = ValuesAt(*square, point.x, point.y);
    return {values[0], values[1]};
  }
};

}  // namespace

int main() {
  std::vector<Point> grid;
  for (int i = 0; i < 1'000'000; ++i)
    grid.push_back(
        {200000 + std::fmod(i * 4391.0, 400000), 100000 + std::fmod(i * 7717.0, 800000)});
  std::vector<Point> places(grid.size());
  std::vector<Point> back(grid.size());
  const double there = MedianNanoseconds(grid, places, [](Point p) {
    Point place{};
    GridToWGS84(p.x, p.y, place.y, place.x);
    return place;
  });
  const double home = MedianNanoseconds(places, back, [](Point p) {
    Point point{};
    WGS84ToGrid(p.y, p.x, point.x, point.y);
    return point;
  });
  const double patchedHome = MedianNanoseconds(places, back, Patches{ToGrid, 2, 1, {1e-4, 1e-4}});
  const double patchedThere =
      MedianNanoseconds(grid, places, Patches{ToPlace, 100000, 100000, {1e-9, 1e-9}});
  std::printf("%.0f %.0f %.0f %.0f\n", there, home, patchedThere, patchedHome);
}
