#include "sites/listing/fast_listing.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "geo/angles.h"
#include "geo/dist_bear.h"
#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "geo/national_grid.h"
#include "geo/trigonometry.h"
#include "workspace/values/strings.h"

namespace {

// A patch takes about a hundred records' time to make and a kilobyte to keep.
constexpr int kRecordsBeforePatch = 20;
constexpr int kMostPatches = 2000;

// What a patch gives: the place in the other form, and how it lies from the home station.
enum Value : std::size_t { kX, kY, kCosArc, kSinLat, kEast };

// degrees or m; the rest are sines and cosines
constexpr PatchValues kGridTolerances{1e-9, 1e-9, 1e-13, 1e-13, 1e-13, 0};
constexpr PatchValues kLocatorTolerances{1e-4, 1e-4, 1e-13, 1e-13, 1e-13, 0};

// How near a decision a value may come, ten times and more what the tolerances can make of it: in
// cells of a locator, units of a reference, tenths of a degree or kilometre, and at the limits of a
// run.
constexpr double kCellMargin = 1e-3;
constexpr double kUnitMargin = 1e-3;
constexpr double kTenthMargin = 2.5e-4;
constexpr double kLimitMargin = 1e-5;

// A bearing comes from cosines, so it is lost where the arc is short or the bearing close to north
// or south. With the sine of the arc and the sine of both above these, what doubles leave of the
// plain formulas stays within a hundredth of the margin.
constexpr double kLeastSinArc = 1e-3;
constexpr double kLeastSinArcTimesEast = 1e-7;
constexpr double kMostHomeLat = 85;

constexpr std::size_t kLetters = 26;
constexpr std::size_t kFields = 18;
constexpr std::size_t kGridSquares = kLetters * kLetters;
constexpr std::size_t kLocatorSquares = kFields * kFields * 100;

// A position as the decoders would be given it.
struct Reference {
  std::array<char, 16> text;
  std::size_t length = 0;
  bool onGrid = false;  // a grid reference, else a locator
  std::string_view View() const { return {text.data(), length}; }
};

bool IsIn(char c, char first, char last) {
  return c >= first && c <= last;
}

bool IsGridReference(std::string_view text) {
  return text.size() % 2 == 0 && text.size() <= 12 && IsIn(text[0], 'A', 'Z') &&
         IsIn(text[1], 'A', 'Z') && std::all_of(text.begin() + 2, text.end(), IsDigit);
}

bool IsLocator(std::string_view text) {
  if (text.size() != 6 && text.size() != 8 && text.size() != 10) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isLetter = i % 4 < 2;
    if (isLetter ? !IsIn(text[i], 'A', i < 2 ? 'R' : 'X') : !IsDigit(text[i])) return false;
  }
  return true;
}

// A position's letters as capitals, and behind the fourth character no blanks. Nothing if that is
// neither a grid reference nor a locator of the usual length and letters.
std::optional<Reference> ReferenceOf(std::string_view position) {
  Reference reference;
  if (position.size() > reference.text.size()) return {};
  std::size_t length = 0;
  for (std::size_t i = 0; i < position.size(); ++i) {
    const char c = position[i];
    reference.text[length] = IsIn(c, 'a', 'z') ? static_cast<char>(c - 32) : c;
    length += c != ' ' || i < 4;  // no branch: where the blanks stand can't be foreseen
  }
  reference.length = length;
  const std::string_view text = reference.View();
  if (text.size() < 6) return {};
  reference.onGrid = IsDigit(text[4]);
  if (reference.onGrid ? IsGridReference(text) : IsLocator(text)) return reference;
  return {};
}

std::size_t IndexOf(char c, char first) {
  return static_cast<std::size_t>(c - first);
}

// The square with this place among all there could be. It stays where it is until the next is met.
FastSquare& SquareAt(FastRows& fast, std::size_t place) {
  std::uint16_t& number = fast.numbers[place];
  if (number == 0) {
    fast.squares.emplace_back();
    number = static_cast<std::uint16_t>(fast.squares.size());
  }
  return fast.squares[number - 1U];
}

void AddFigures(const FastRows& fast, double lat, double lon, PatchValues& values) {
  const double p2 = lat / kDegreesPerRadian;
  const double east = (lon - fast.homeLon) / kDegreesPerRadian;
  values[kCosArc] = fast.sinHome * Sine(p2) + Cosine(p2) * fast.cosHome * Cosine(east);
  values[kSinLat] = Sine(p2);
  values[kEast] = Cosine(p2) * Sine(east);
}

bool IsSurelyOnGrid(double easting, double northing) {
  return easting > 1 && easting < kEastEdge - 1 && northing > 1 && northing < kNorthEdge - 1;
}

// What is known of all places of a square. The distances are the largest and the smallest of its
// corners and its middle, and more than a place can be from the nearest of these; any distance
// where the exact antipode may lie in it, which counts as no distance.
void Survey(FastSquare& square) {
  constexpr double kFarFromAll = 90;  // km
  constexpr double kAntipode = 20015;
  const auto& [x, y, width, height] = square.patch->over;
  double least = kAntipode;
  double most = 0;
  square.onGrid = true;
  for (const auto& [u, v] : {std::pair(0.0, 0.0), {0, 1}, {1, 0}, {1, 1}, {0.5, 0.5}}) {
    const PatchValues values = ValuesAt(*square.patch, x + u * width, y + v * height);
    const double distance = std::acos(std::clamp(values[kCosArc], -1.0, 1.0)) * kEarthRadius;
    least = std::min(least, distance);
    most = std::max(most, distance);
    square.onGrid = square.onGrid && IsInGridBox(y + v * height, x + u * width) &&
                    IsSurelyOnGrid(values[kX], values[kY]);
  }
  square.nearest = most + kFarFromAll < kAntipode ? least - kFarFromAll : 0;
  square.farthest = most + kFarFromAll;
}

// Counts a record of a square without a patch, which is made when there have been enough.
bool MakesPatch(FastRows& fast, FastSquare& square, Rectangle over, const PatchFunctions& functions,
                const PatchValues& tolerances) {
  if (++square.records != kRecordsBeforePatch || fast.patches == kMostPatches) return false;
  auto patch = std::make_unique<Patch>();
  if (!MakePatch(over, functions, tolerances, *patch)) return false;
  ++fast.patches;
  square.patch = std::move(patch);
  Survey(square);
  return true;
}

// A lettered square.
bool MakesGridPatch(FastRows& fast, FastSquare& square, int easting, int northing) {
  const auto functions = [&fast](double x, double y) {
    PatchValues values{};
    GridToWGS84(x, y, values[kY], values[kX]);
    AddFigures(fast, values[kY], values[kX], values);
    return values;
  };
  return MakesPatch(fast, square, {1.0 * easting, 1.0 * northing, kSquareSide, kSquareSide},
                    functions, kGridTolerances);
}

// The square of a locator in which a place lies.
bool MakesLocatorPatch(FastRows& fast, FastSquare& square, double lat, double lon) {
  const auto functions = [&fast](double x, double y) {
    PatchValues values{};
    WGS84ToGrid(y, x, values[kX], values[kY]);
    AddFigures(fast, y, x, values);
    return values;
  };
  const Rectangle over{std::floor(lon / 2) * 2, std::floor(lat), 2, 1};
  return MakesPatch(fast, square, over, functions, kLocatorTolerances);
}

// The nearest whole number, or nothing where it is not sure which.
std::optional<int> Rounded(double number, double margin) {
  const double below = std::floor(number + 0.5);
  const double above = number + 0.5 - below;
  if (above < margin || above > 1 - margin) return {};
  return static_cast<int>(below);
}

void Put(std::string& row, std::size_t column, std::string_view item) {
  item.copy(row.data() + column - 1, item.size());
}

// Tenths as FormatPicture writes them under "####0.0"; returns where the text ends.
char* PutTenths(char* at, int tenths) {
  char* end = at + 3;  // a unit, the point and the tenth
  for (int least = 100; tenths >= least; least *= 10) ++end;
  char* digit = end;
  *--digit = static_cast<char>('0' + tenths % 10);
  *--digit = '.';
  while (digit != at) *--digit = static_cast<char>('0' + (tenths /= 10) % 10);
  return end;
}

// The locator of a place, or false where a cell's edge is too near.
bool PutLocator(std::string& row, double lat, double lon) {
  constexpr double kSmallest = 5760;  // cells in a unit of either axis
  char* at = row.data() + kLocatorColumn - 1;
  for (const double axis : {(lon + 180) / 2, lat + 90}) {
    const std::optional<int> cell = Rounded(axis * kSmallest - 0.5, kCellMargin);
    if (!cell) return false;
    int rest = *cell;
    at[8] = static_cast<char>('A' + rest % 24);
    at[6] = static_cast<char>('0' + (rest /= 24) % 10);
    at[4] = static_cast<char>('A' + (rest /= 10) % 24);
    at[2] = static_cast<char>('0' + (rest /= 24) % 10);
    at[0] = static_cast<char>('A' + rest / 10);
    ++at;
  }
  return true;
}

// The grid reference of a position on the grid, or false where a rounding is not sure.
bool PutGridReference(std::string& row, double easting, double northing, double resolution) {
  const auto [unit, digits, unitsPerSquare] = PrecisionFor(resolution);
  const std::optional<int> east = Rounded(easting / unit, kUnitMargin);
  const std::optional<int> north = Rounded(northing / unit, kUnitMargin);
  if (!east || !north) return false;
  char* at = row.data() + kGridReferenceColumn - 1;
  at = std::ranges::copy(SquareLetters(*east / unitsPerSquare, *north / unitsPerSquare), at).out;
  for (int value : {*east, *north}) {
    for (int i = digits; i-- > 0; value /= 10) at[i] = static_cast<char>('0' + value % 10);
    at += digits + 1;
  }
  return true;
}

// Whether a value is so near a limit that it is not sure on which side.
bool IsNear(double value, double limit) {
  return std::fabs(value - limit) < kLimitMargin;
}

// Distance and bearings from the values of a patch, by the tangents where the plain formulas take
// cosines; what the C library's arctangents differ by is far within the margins. lon is sure to lie
// on the right side of the home station wherever they are.
RowVerdict PutFigures(FastRows& fast, const PatchValues& values, double lon) {
  const double cosArc = values[kCosArc];
  const double east = std::fabs(values[kEast]);
  const double sinArc = std::sqrt(std::max(0.0, 1 - cosArc * cosArc));
  if (sinArc < kLeastSinArc || sinArc * east < kLeastSinArcTimesEast) return RowVerdict::Unknown;
  if (cosArc < fast.cosBeyond) return RowVerdict::Dropped;
  const double distance = std::atan2(sinArc, cosArc) * kEarthRadius;
  const Limits& limits = fast.limits;
  if (IsNear(distance, limits.minimum) || IsNear(distance, limits.maximum))
    return RowVerdict::Unknown;
  if (distance < limits.minimum || distance > limits.maximum) return RowVerdict::Dropped;

  const double across = fast.cosHome * east;
  double bearing = std::atan2(across, values[kSinLat] - cosArc * fast.sinHome) * kDegreesPerRadian;
  if (lon < fast.homeLon) bearing = 360 - bearing;
  if (IsNear(bearing, limits.from) || IsNear(bearing, limits.to)) return RowVerdict::Unknown;
  if (!InSector(bearing, limits.from, limits.to)) return RowVerdict::Dropped;
  double backbearing =
      std::atan2(across, fast.sinHome - cosArc * values[kSinLat]) * kDegreesPerRadian;
  if (fast.homeLon < lon) backbearing = 360 - backbearing;

  const std::optional<int> to = Rounded(bearing * 10, kTenthMargin);
  const std::optional<int> back = Rounded(backbearing * 10, kTenthMargin);
  const std::optional<int> far = Rounded(distance * 10, kTenthMargin);
  if (!to || !back || !far) return RowVerdict::Unknown;
  char* row = fast.row.data();
  PutTenths(row + kBearingColumn - 1, *to);
  row[kBackbearingColumn - 1] = '(';
  *PutTenths(row + kBackbearingColumn, *back) = ')';
  PutTenths(row + kDistanceColumn - 1, *far);
  return RowVerdict::Listed;
}

void StartRow(FastRows& fast, const SiteLine& site) {
  fast.row.assign(kRowLength, ' ');
  Put(fast.row, kNameColumn, site.name.substr(0, kNameLength));
  Put(fast.row, kDegreesColumn, "deg");
  Put(fast.row, kKilometresColumn, "km");
}

void Remember(FastRows& fast, std::string_view line, bool showsEastNorth) {
  PendingRecord& record = showsEastNorth ? fast.shown : fast.last;
  record.line = line;
  record.pending = true;
  if (showsEastNorth) fast.last.pending = false;
}

// Whether a record of the square may be listed, going by its name and its square.
bool MayBeListed(const FastRows& fast, const FastSquare& square, const SiteLine& site) {
  return square.nearest <= fast.limits.maximum && square.farthest >= fast.limits.minimum &&
         Matches(site.name, fast.limits.name);
}

RowVerdict GridRow(FastRows& fast, std::string_view line, const SiteLine& site,
                   std::string_view reference) {
  FastSquare& square =
      SquareAt(fast, IndexOf(reference[0], 'A') * kLetters + IndexOf(reference[1], 'A'));
  int easting = 0;
  int northing = 0;
  SquareCorner(reference[0], reference[1], easting, northing);
  if (square.patch == nullptr && !MakesGridPatch(fast, square, easting, northing))
    return RowVerdict::Unknown;
  RowVerdict verdict = RowVerdict::Dropped;
  if (MayBeListed(fast, square, site)) {
    const std::size_t half = reference.size() / 2 - 1;
    int east = 0;
    int north = 0;
    int unit = 100000;
    for (std::size_t i = 2; i < 2 + half; ++i) {
      east = east * 10 + (reference[i] - '0');
      north = north * 10 + (reference[i + half] - '0');
      unit /= 10;
    }
    const PatchValues values =
        ValuesAt(*square.patch, easting + east * unit, northing + north * unit);
    StartRow(fast, site);
    Put(fast.row, kGridReferenceColumn, reference);
    verdict = PutFigures(fast, values, values[kX]);
    if (verdict == RowVerdict::Listed && !PutLocator(fast.row, values[kY], values[kX]))
      verdict = RowVerdict::Unknown;
  }
  if (verdict != RowVerdict::Unknown) Remember(fast, line, true);
  return verdict;
}

RowVerdict LocatorRow(FastRows& fast, std::string_view line, const SiteLine& site,
                      std::string_view locator) {
  const std::size_t field = IndexOf(locator[0], 'A') * kFields + IndexOf(locator[1], 'A');
  FastSquare& square = SquareAt(
      fast, kGridSquares + (field * 10 + IndexOf(locator[2], '0')) * 10 + IndexOf(locator[3], '0'));
  if (square.onGrid && !MayBeListed(fast, square, site)) {
    Remember(fast, line, true);
    return RowVerdict::Dropped;
  }
  double lat = 0;
  double lon = 0;
  double resolution = 0;
  LocatorToWGS84(locator, lat, lon, resolution);
  if (square.patch == nullptr && !MakesLocatorPatch(fast, square, lat, lon))
    return RowVerdict::Unknown;
  const bool inBox = IsInGridBox(lat, lon);
  const PatchValues values = ValuesAt(*square.patch, lon, lat);
  if (inBox && !IsSurelyOnGrid(values[kX], values[kY])) return RowVerdict::Unknown;
  RowVerdict verdict = RowVerdict::Dropped;
  if (MayBeListed(fast, square, site)) {
    StartRow(fast, site);
    Put(fast.row, kLocatorColumn, locator);
    verdict = PutFigures(fast, values, lon);
    if (verdict == RowVerdict::Listed && inBox &&
        !PutGridReference(fast.row, values[kX], values[kY], resolution))
      verdict = RowVerdict::Unknown;
  }
  if (verdict != RowVerdict::Unknown) Remember(fast, line, inBox);
  return verdict;
}

}  // namespace

FastRows FastRowsFor(const Workspace& w, const Limits& limits) {
  const double p1 = w.BaseLat / kDegreesPerRadian;
  FastRows fast{.limits = limits,
                .homeLat = w.BaseLat,
                .homeLon = w.BaseLong,
                .sinHome = Sine(p1),
                .cosHome = Cosine(p1),
                .cosBeyond = Cosine(
                    std::min((limits.maximum + kLimitMargin) / kEarthRadius, std::numbers::pi))};
  fast.numbers.resize(kGridSquares + kLocatorSquares);
  return fast;
}

RowVerdict FastRow(FastRows& fast, std::string_view line, const SiteLine& site) {
  if (!(std::fabs(fast.homeLat) <= kMostHomeLat)) return RowVerdict::Unknown;
  const std::optional<Reference> reference = ReferenceOf(site.position);
  if (!reference || HasEndMarker(line)) return RowVerdict::Unknown;
  return reference->onGrid ? GridRow(fast, line, site, reference->View())
                           : LocatorRow(fast, line, site, reference->View());
}

void CatchUp(FastRows& fast, Workspace& w, Columns& columns) {
  for (PendingRecord* record : {&fast.shown, &fast.last}) {
    if (!record->pending) continue;
    record->pending = false;
    DecodeRecord(w, record->line, SplitSiteLine(record->line), columns);
  }
}
