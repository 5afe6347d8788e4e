#include "sites/listing/fast_listing.h"

#include <algorithm>
#include <cmath>

#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "geo/national_grid.h"
#include "workspace/values/strings.h"

namespace {

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

// Returns the reference of a place in the other form; empty if the exact place could have another
// reference.
std::string ReferenceOf(const ApproximatePlace& place, CoordinateForm form, double resolution) {
  std::string reference;
  if (form == CoordinateForm::LonLat) {
    const double unit = UnitOf(DigitsFor(resolution));
    if (!IsNearTie(place.x / unit, kMetreError / unit) &&
        !IsNearTie(place.y / unit, kMetreError / unit))
      reference = GridReferenceOf(place.x, place.y, resolution);
  } else {
    constexpr double kCells = kFinestSquares;
    if (!IsNearTie((place.y + 90) * kCells + 0.5, kLatError * kCells) &&
        !IsNearTie((place.x + 180) / 2 * kCells + 0.5, kLonError / 2 * kCells))
      GenLocator(place.y, place.x, reference);
  }
  return reference;
}

std::unique_ptr<AcceleratedSquare> MakeSquare(const ListingAccelerator& fast, CoordinateForm form,
                                              const Rectangle& area) {
  constexpr double kRadius = 100;               // km, from the centre of any square to its corners
  constexpr double kHalfCircumference = 20015;  // km; an exact antipode can have the distance 0
  auto square = std::make_unique<AcceleratedSquare>();
  square->form = form;
  square->polynomials = PolynomialsOf(fast.home, area, form);
  const double centre = PlaceAt(fast.home, square->polynomials, form, area.x + area.width / 2,
                                area.y + area.height / 2)
                            .figures.distance;
  square->isOutOfReach =
      centre + kRadius < kHalfCircumference &&
      (centre - kRadius > fast.limits.maximum || centre + kRadius < fast.limits.minimum);
  return square;
}

// Returns the lettered square that a grid reference names; null if the square is not on the grid,
// or if the place may lie outside it since not only digits follow the letters.
const AcceleratedSquare* LetteredSquareOf(ListingAccelerator& fast, std::string_view reference) {
  const auto [x, y] = SquareCorner(reference[0], reference[1]);
  if (x < 0 || x >= kEastEdge || y < 0 || y >= kNorthEdge) return nullptr;
  for (const char c : reference.substr(2))
    if (!IsDigit(c)) return nullptr;
  auto& square = fast.lettered[static_cast<std::size_t>(y / kSquareSide)]
                              [static_cast<std::size_t>(x / kSquareSide)];
  if (!square)
    square = MakeSquare(fast, CoordinateForm::EastingNorthing,
                        {1.0 * x, 1.0 * y, 1.0 * kSquareSide, 1.0 * kSquareSide});
  return square.get();
}

// Returns the square of degrees that the first four characters of a locator name; null if the place
// may lie outside it since a later character is out of range, or may have no grid reference.
const AcceleratedSquare* DegreeSquareOf(ListingAccelerator& fast, std::string_view locator) {
  constexpr std::string_view kFirst = "AA00AA00AA";
  constexpr std::string_view kLast = "RR99XX99XX";
  for (std::size_t i = 0; i < std::min(locator.size(), kLast.size()); ++i)
    if (locator[i] < kFirst[i] || locator[i] > kLast[i]) return nullptr;
  const int lon = (locator[0] - 'J') * 20 + (locator[2] - '0') * 2;
  const int lat = (locator[1] - 'J') * 10 + (locator[3] - '0');
  // Inside the box of GenNGR the grid ends at 50 N and, below 54 N, between 8 and 6 W.
  if (lat < 50 || lat > 60 || lon < (lat < 54 ? -6 : -8)) return nullptr;
  if (lon > 0 || (lon == 0 && locator[4] > 'U'))
    return nullptr;  // U ends at 1.75 E, the box at 1.8
  auto& square = fast.degrees[static_cast<unsigned>(lat - 50)][static_cast<unsigned>(lon + 8) / 2];
  if (!square) square = MakeSquare(fast, CoordinateForm::LonLat, {1.0 * lon, 1.0 * lat, 2, 1});
  return square.get();
}

}  // namespace

std::optional<bool> TryFastRow(ListingAccelerator& fast, const SiteRecord& record,
                               std::string& text) {
  const AcceleratedSquare* square = nullptr;
  if (record.kind == kGridReference)
    square = LetteredSquareOf(fast, record.position);
  else if (record.kind == kLocator && record.position.size() % 2 == 0)
    square = DegreeSquareOf(fast, record.position);
  if (square == nullptr) return {};
  // A record on the grid overwrites all values that the deferred record would write.
  fast.deferred = record.line;
  if (square->isOutOfReach || !Matches(record.name, fast.limits.name)) return false;
  const bool isGrid = square->form == CoordinateForm::EastingNorthing;
  double x = 0;
  double y = 0;
  double resolution = 0;
  if (isGrid)
    NGRToGrid(record.position, x, y, resolution);
  else
    LocatorToWGS84(record.position, y, x, resolution);
  const ApproximatePlace place = PlaceAt(fast.home, square->polynomials, square->form, x, y);
  if (AreUncertain(place.figures, fast.limits)) return {};
  if (!IsWithin(fast.limits, place.figures)) return false;
  const std::string other = ReferenceOf(place, square->form, resolution);
  if (other.empty()) return {};
  AppendRow(text, record.name, isGrid ? other : record.position, isGrid ? record.position : other,
            place.figures);
  return true;
}

void ReplayDeferred(ListingAccelerator& fast, Workspace& w, Columns& columns) {
  SiteRecord record;
  if (ReadRecord(fast.deferred, record)) DecodeRecord(w, record, columns);
  fast.deferred.clear();
}
