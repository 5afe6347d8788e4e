#include "sites/listing/fast_listing.h"

#include <algorithm>
#include <cmath>

#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "geo/national_grid.h"
#include "workspace/values/strings.h"

namespace {

// The squares: those of the National Grid, and those of 2 by 1 degrees from the south-west corner
// of IsSurelyOnGrid on.
constexpr int kGridColumns = 7, kGridRows = 14;
constexpr int kDegreeColumns = 5, kDegreeRows = 11;
constexpr double kWest = -8, kSouth = 50, kNorth = 61;  // degrees

// Whether a place is in a part of the box of IsInGridBox where all places are on the grid, which
// ends at 50 N and, below 54 N, between 8 and 6 W.
bool IsSurelyOnGrid(double lat, double lon) {
  return IsInGridBox(lat, lon) && lat >= kSouth && lat < kNorth && (lat >= 54 || lon >= -6);
}

// Whether a value from 0 to 2^31 that is off by `error` at most could round differently.
bool IsNearTie(double value, double error) {
  const double fraction = value - static_cast<std::int32_t>(value);
  return std::fabs(fraction - 0.5) <= error;
}

// Whether the exact figures could lie on the other side of a limit of the run, or be printed with
// another tenth.
bool AreUncertain(const DistanceAndBearings& figures, const Limits& limits) {
  const auto [distance, bearing, backbearing] = figures;
  const auto isNear = [](double value, double limit, double error) {
    return std::fabs(value - limit) <= error;
  };
  return !AreWellConditioned(figures) || isNear(distance, limits.minimum, kDistanceError) ||
         isNear(distance, limits.maximum, kDistanceError) ||
         isNear(bearing, limits.from, kBearingError) || isNear(bearing, limits.to, kBearingError) ||
         IsNearTie(distance * 10, kDistanceError * 10) ||
         IsNearTie(bearing * 10, kBearingError * 10) ||
         IsNearTie(backbearing * 10, kBearingError * 10);
}

// Returns the reference that is calculated for a place of a square; empty if the exact place could
// have another one.
std::string ReferenceOf(const ApproximatePlace& place, CoordinateForm form, double resolution) {
  std::string reference;
  if (form == CoordinateForm::LonLat) {
    const double unit = PrecisionFor(resolution).unit;
    if (!IsNearTie(place.x / unit, kMetreError / unit) &&
        !IsNearTie(place.y / unit, kMetreError / unit))
      reference = GridReferenceOf(place.x, place.y, resolution);
  } else {
    constexpr double kCells =
        5760;  // finest squares in a degree of latitude, and in two of longitude
    if (!IsNearTie((place.y + 90) * kCells + 0.5, kLatError * kCells) &&
        !IsNearTie((place.x + 180) / 2 * kCells + 0.5, kLonError / 2 * kCells))
      GenLocator(place.y, place.x, reference);
  }
  return reference;
}

// Whether a place of a square may pass the limits of distance.
bool MayBeListed(const HomeStation& home, const Limits& limits, CoordinateForm form,
                 const Rectangle& over) {
  constexpr double kRadius = 100;               // km, from the centre of any square to its corners
  constexpr double kHalfCircumference = 20015;  // km; an exact antipode can have the distance 0
  const double x = over.x + over.width / 2;
  const double y = over.y + over.height / 2;
  double lat = y;
  double lon = x;
  if (form == CoordinateForm::EastingNorthing) GridToWGS84(x, y, lat, lon);
  const double centre = DistanceAndBearingsOf(home, lat, lon).distance;
  return centre + kRadius >= kHalfCircumference ||
         (centre - kRadius <= limits.maximum && centre + kRadius >= limits.minimum);
}

std::vector<AcceleratedSquare> SquaresOf(const HomeStation& home, const Limits& limits,
                                         CoordinateForm form, const Rectangle& first, int columns,
                                         int rows) {
  std::vector<AcceleratedSquare> squares;
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const Rectangle over{first.x + column * first.width, first.y + row * first.height,
                           first.width, first.height};
      squares.push_back({form, over, MayBeListed(home, limits, form, over)});
    }
  }
  return squares;
}

// A position as a reference states it, in the form of its square, and its accuracy in km.
struct Position {
  double x = 0, y = 0;
  double resolution = 0;
};

// Returns the square of a record; null if it has none, or if the place of a grid reference may lie
// outside its square since not only digits follow the letters. Computes the position of a locator;
// that of a grid reference is not needed in a square that is too far.
AcceleratedSquare* SquareOf(ListingAccelerator& fast, const SiteRecord& record,
                            Position& position) {
  const std::string& reference = record.position;
  if (record.kind == kGridReference) {
    const auto [x, y] = SquareCorner(reference[0], reference[1]);
    if (x < 0 || x >= kEastEdge || y < 0 || y >= kNorthEdge) return nullptr;
    if (!std::all_of(reference.begin() + 2, reference.end(), IsDigit)) return nullptr;
    return &fast.letteredSquares[static_cast<std::size_t>(y / kSquareSide * kGridColumns +
                                                          x / kSquareSide)];
  }
  if (record.kind != kLocator || reference.size() % 2 != 0) return nullptr;
  LocatorToWGS84(reference, position.y, position.x, position.resolution);
  if (!IsSurelyOnGrid(position.y, position.x)) return nullptr;
  const int column = static_cast<int>(position.x - kWest) / 2;
  const int row = static_cast<int>(position.y - kSouth);
  return &fast.degreeSquares[static_cast<std::size_t>(row * kDegreeColumns + column)];
}

// Does what TryFastRow does for a record of a square that may be listed.
std::optional<bool> TryRowIn(AcceleratedSquare& square, const ListingAccelerator& fast,
                             const SiteRecord& record, Position& position, std::string& text) {
  const bool isGrid = square.form == CoordinateForm::EastingNorthing;
  if (isGrid) NGRToGrid(record.position, position.x, position.y, position.resolution);
  if (!square.polynomials)
    square.polynomials =
        std::make_unique<LocalPolynomials>(PolynomialsOf(fast.home, square.over, square.form));
  const ApproximatePlace place =
      PlaceAt(fast.home, *square.polynomials, square.form, position.x, position.y);
  if (AreUncertain(place.figures, fast.limits)) return {};
  if (!IsWithin(fast.limits, place.figures)) return false;
  const std::string other = ReferenceOf(place, square.form, position.resolution);
  if (other.empty()) return {};
  AppendRow(text, record.name, isGrid ? other : record.position, isGrid ? record.position : other,
            place.figures);
  return true;
}

}  // namespace

ListingAccelerator AcceleratorFor(const Workspace& w, const Limits& limits) {
  const HomeStation home = HomeStationAt(w.BaseLat, w.BaseLong);
  return {limits, home,
          SquaresOf(home, limits, CoordinateForm::EastingNorthing, {0, 0, kSquareSide, kSquareSide},
                    kGridColumns, kGridRows),
          SquaresOf(home, limits, CoordinateForm::LonLat, {kWest, kSouth, 2, 1}, kDegreeColumns,
                    kDegreeRows)};
}

std::optional<bool> TryFastRow(ListingAccelerator& fast, const SiteRecord& record,
                               std::string& text) {
  Position position;
  AcceleratedSquare* square = SquareOf(fast, record, position);
  if (square == nullptr) return {};
  // A record on the grid overwrites everything that the deferred one would leave.
  fast.deferred.clear();
  std::optional<bool> listed = false;
  if (square->mayBeListed && Matches(record.name, fast.limits.name))
    listed = TryRowIn(*square, fast, record, position, text);
  if (listed.has_value()) fast.deferred = record.line;
  return listed;
}

void ReplayDeferred(ListingAccelerator& fast, Workspace& w, Columns& columns) {
  SiteRecord record;
  if (ReadRecord(fast.deferred, record)) DecodeRecord(w, record, columns);
  fast.deferred.clear();
}
