#include "sites/listing/fast_listing.h"

#include <algorithm>
#include <cmath>

#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "geo/national_grid.h"
#include "workspace/commands/classify_input.h"
#include "workspace/values/strings.h"

namespace {

// A square with so many records usually has more. Its polynomials cost 15 exact conversions.
constexpr int kRecordsBeforePolynomials = 8;

// The squares: those of the National Grid, and those of 2 by 1 degrees of the box outside which
// there are no references, from the south-west corner on.
constexpr std::size_t kGridColumns = 7, kGridRows = 14;
constexpr std::size_t kBoxColumns = 5, kBoxRows = 12;
constexpr double kBoxWest = -8, kBoxSouth = 49, kBoxNorth = 61;  // degrees

// Whether a value from 0 to 2^31 that is off by `error` at most could round differently.
bool IsNearTie(double value, double error) {
  const double fraction = value - static_cast<std::int32_t>(value);
  return std::fabs(fraction - 0.5) <= error;
}

bool IsNear(double value, double limit, double error) {
  return std::fabs(value - limit) <= error;
}

// Whether the exact figures could lie on the other side of a limit of the run.
bool AreNearLimit(const DistanceAndBearings& figures, const Limits& limits) {
  return IsNear(figures.distance, limits.minimum, kDistanceError) ||
         IsNear(figures.distance, limits.maximum, kDistanceError) ||
         IsNear(figures.bearing, limits.from, kBearingError) ||
         IsNear(figures.bearing, limits.to, kBearingError);
}

// Whether a figure could be printed with another tenth.
bool AreNearTie(const DistanceAndBearings& figures) {
  return IsNearTie(figures.distance * 10, kDistanceError * 10) ||
         IsNearTie(figures.bearing * 10, kBearingError * 10) ||
         IsNearTie(figures.backbearing * 10, kBearingError * 10);
}

// Whether the place could lie in another of the smallest cells of a locator.
bool IsNearCellEdge(double lat, double lon) {
  constexpr double kCells = 5760;  // in a degree of latitude, and in two of longitude
  return IsNearTie((lat + 90) * kCells + 0.5, kLatError * kCells) ||
         IsNearTie((lon + 180) / 2 * kCells + 0.5, kLonError / 2 * kCells);
}

// Whether the position could have another grid reference.
bool AreNearTie(double easting, double northing, double resolution) {
  const double unit = PrecisionFor(resolution).unit;
  return IsNearTie(easting / unit, kMetreError / unit) ||
         IsNearTie(northing / unit, kMetreError / unit);
}

// Bounds the distances of all places of a square by the distance of its centre.
void ComputeDistanceBounds(double centre, AcceleratedSquare& square) {
  constexpr double kRadius = 100;               // km, from the centre of any square to its corners
  constexpr double kHalfCircumference = 20015;  // km; an exact antipode can have the distance 0
  square.farthest = centre + kRadius;
  square.nearest = square.farthest < kHalfCircumference ? centre - kRadius : 0;
}

// Whether every place of a square of degrees has a grid reference: its corners decide, since the
// edges of the grid are nearly straight.
bool IsWhollyOnGrid(const Rectangle& degrees) {
  for (const double lon : {degrees.x, degrees.x + degrees.width}) {
    for (const double lat : {degrees.y, degrees.y + degrees.height}) {
      double easting = 0;
      double northing = 0;
      WGS84ToGrid(lat, lon, easting, northing);
      if (!IsOnGrid(easting, northing)) return false;
    }
  }
  return true;
}

// Counts a record of a square without polynomials, and makes them when there are enough records.
[[gnu::noinline]] void CountRecord(const HomeStation& home, AcceleratedSquare& square,
                                   const Rectangle& over, CoordinateForm form) {
  if (++square.recordCount == 1)
    square.isOnGrid = form == CoordinateForm::EastingNorthing || IsWhollyOnGrid(over);
  if (square.recordCount < kRecordsBeforePolynomials || !square.isOnGrid) return;
  square.polynomials = std::make_unique<LocalPolynomials>(PolynomialsOf(home, over, form));
  const double x = over.x + over.width / 2;
  const double y = over.y + over.height / 2;
  const ApproximatePlace centre = PlaceAt(home, *square.polynomials, form, x, y);
  const DistanceAndBearings figures = form == CoordinateForm::LonLat
                                          ? DistanceAndBearingsOf(home, y, x)
                                          : DistanceAndBearingsOf(home, centre.y, centre.x);
  ComputeDistanceBounds(figures.distance, square);
}

// Returns the square that the letters of a grid reference name. Null if the square is not on the
// grid, or if the place may lie outside it since not only digits follow.
const AcceleratedSquare* LetteredSquareOf(ListingAccelerator& fast, std::string_view reference) {
  const auto [x, y] = SquareCorner(reference[0], reference[1]);
  if (x < 0 || x >= kEastEdge || y < 0 || y >= kNorthEdge) return nullptr;
  if (!std::all_of(reference.begin() + 2, reference.end(), IsDigit)) return nullptr;
  const auto column = static_cast<std::size_t>(x / kSquareSide);
  const auto row = static_cast<std::size_t>(y / kSquareSide);
  AcceleratedSquare& square = fast.letteredSquares[row * kGridColumns + column];
  if (square.polynomials == nullptr)
    CountRecord(fast.home, square, {1.0 * x, 1.0 * y, kSquareSide, kSquareSide},
                CoordinateForm::EastingNorthing);
  return &square;
}

// Returns the square of degrees in which a place lies; null if the place is outside the box.
const AcceleratedSquare* DegreeSquareAt(ListingAccelerator& fast, double lat, double lon) {
  if (!IsInGridBox(lat, lon) || lat == kBoxNorth) return nullptr;
  const int column = static_cast<int>(lon - kBoxWest) / 2;
  const int row = static_cast<int>(lat - kBoxSouth);
  AcceleratedSquare& square = fast.degreeSquares[static_cast<std::size_t>(row) * kBoxColumns +
                                                 static_cast<std::size_t>(column)];
  if (square.polynomials == nullptr)
    CountRecord(fast.home, square, {kBoxWest + 2 * column, kBoxSouth + row, 2, 1},
                CoordinateForm::LonLat);
  return &square;
}

// False if every place of the square is too near or too far to be listed.
bool MayBeListed(const AcceleratedSquare& square, const Limits& limits) {
  return square.nearest <= limits.maximum && square.farthest >= limits.minimum;
}

// A position as a reference states it, in the form of its square, and its accuracy in km.
struct Position {
  CoordinateForm form = CoordinateForm::EastingNorthing;
  double x = 0, y = 0;
  double resolution = 0;
};

// Returns the square of a record; null if it has none. Computes the position of a locator; that of
// a grid reference is not needed in a square that is too far.
const AcceleratedSquare* SquareOf(ListingAccelerator& fast, const SiteRecord& record,
                                  Position& position) {
  if (record.kind == kGridReference) return LetteredSquareOf(fast, record.position);
  if (record.kind != kLocator || record.position.size() % 2 != 0) return nullptr;
  position.form = CoordinateForm::LonLat;
  LocatorToWGS84(record.position, position.y, position.x, position.resolution);
  return DegreeSquareAt(fast, position.y, position.x);
}

// Appends the row of a record in a square with polynomials, if the record passes the limits.
RowOutcome AppendFastRow(const ListingAccelerator& fast, const AcceleratedSquare& square,
                         const SiteRecord& record, Position& position, std::string& text) {
  const bool isGrid = position.form == CoordinateForm::EastingNorthing;
  if (isGrid) NGRToGrid(record.position, position.x, position.y, position.resolution);
  const ApproximatePlace place =
      PlaceAt(fast.home, *square.polynomials, position.form, position.x, position.y);
  if (!AreWellConditioned(place.figures) || AreNearLimit(place.figures, fast.limits))
    return RowOutcome::NeedsExactPath;
  if (!IsWithin(fast.limits, place.figures)) return RowOutcome::Dropped;
  if (AreNearTie(place.figures)) return RowOutcome::NeedsExactPath;
  std::string reference;
  if (isGrid) {
    if (IsNearCellEdge(place.y, place.x)) return RowOutcome::NeedsExactPath;
    GenLocator(place.y, place.x, reference);
    AppendRow(text, {record.name, reference, record.position, place.figures});
  } else {
    if (AreNearTie(place.x, place.y, position.resolution)) return RowOutcome::NeedsExactPath;
    reference = GridReferenceOf(place.x, place.y, position.resolution);
    AppendRow(text, {record.name, record.position, reference, place.figures});
  }
  return RowOutcome::Listed;
}

}  // namespace

ListingAccelerator AcceleratorFor(const Workspace& w, const Limits& limits) {
  return {limits, HomeStationAt(w.BaseLat, w.BaseLong),
          std::vector<AcceleratedSquare>(std::size_t{kGridColumns} * kGridRows),
          std::vector<AcceleratedSquare>(std::size_t{kBoxColumns} * kBoxRows)};
}

RowOutcome TryFastRow(ListingAccelerator& fast, const SiteRecord& record, std::string& text) {
  Position position;
  const AcceleratedSquare* square = SquareOf(fast, record, position);
  if (square == nullptr || !square->isOnGrid) return RowOutcome::NeedsExactPath;
  // A record on the grid overwrites everything that the deferred one would leave.
  fast.deferred.clear();
  if (square->polynomials == nullptr) return RowOutcome::NeedsExactPath;
  RowOutcome outcome = RowOutcome::Dropped;
  if (MayBeListed(*square, fast.limits) && Matches(record.name, fast.limits.name))
    outcome = AppendFastRow(fast, *square, record, position, text);
  if (outcome != RowOutcome::NeedsExactPath) fast.deferred = record.line;
  return outcome;
}

void ReplayDeferred(ListingAccelerator& fast, Workspace& w, Columns& columns) {
  if (fast.deferred.empty()) return;
  SiteRecord record;
  ReadRecord(fast.deferred, SplitSiteLine(fast.deferred), record);
  DecodeRecord(w, record, columns);
  fast.deferred.clear();
}
