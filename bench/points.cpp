// Nanoseconds a point for a million points from the National Grid to WGS84 and back: by the exact
// formulas, and by polynomials as a listing has them, distance and bearings included.
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>
#include <vector>

#include "geo/national_grid.h"
#include "sites/listing/approximate_place.h"

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

// Converts by polynomials; those of a square are made when its first point comes, which is part of
// the time. The squares are those of the National Grid, or of 2 by 1 degrees from 10 W and 45 N on.
struct ByPolynomials {
  CoordinateForm form;
  Rectangle first;  // the south-west square
  HomeStation home = HomeStationAt(51.5, -1.25);
  std::array<std::unique_ptr<LocalPolynomials>, 400> squares{};

  Point operator()(Point point) {
    const auto column = static_cast<int>((point.x - first.x) / first.width);
    const auto row = static_cast<int>((point.y - first.y) / first.height);
    auto& square = squares[static_cast<std::size_t>(column * 20 + row)];
    if (square == nullptr) {
      const Rectangle over{first.x + column * first.width, first.y + row * first.height,
                           first.width, first.height};
      square = std::make_unique<LocalPolynomials>(PolynomialsOf(home, over, form));
    }
    const ApproximatePlace place = PlaceAt(home, *square, form, point.x, point.y);
    return {place.x, place.y};
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
  const double toDegrees = MedianNanoseconds(grid, places, [](Point p) {
    Point place{};
    GridToWGS84(p.x, p.y, place.y, place.x);
    return place;
  });
  const double toGrid = MedianNanoseconds(places, back, [](Point p) {
    Point point{};
    WGS84ToGrid(p.y, p.x, point.x, point.y);
    return point;
  });
  const double fastToGrid =
      MedianNanoseconds(places, back, ByPolynomials{CoordinateForm::LonLat, {-10, 45, 2, 1}});
  const double fastToDegrees = MedianNanoseconds(
      grid, places, ByPolynomials{CoordinateForm::EastingNorthing, {0, 0, 100000, 100000}});
  std::printf("%.0f %.0f %.0f %.0f\n", toDegrees, toGrid, fastToDegrees, fastToGrid);
}
