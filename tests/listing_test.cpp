// The accelerator of the listing, compared with the exact path.
#include "sites/listing/listing.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <random>
#include <utility>
#include <vector>

#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "geo/national_grid.h"
#include "platform/headless/headless.h"
#include "sites/database/line_reader.h"
#include "sites/listing/approximate_place.h"
#include "sites/listing/fast_listing.h"
#include "sites/listing/listing_row.h"
#include "workspace/commands/home_station.h"
#include "workspace/commands/use_this.h"
#include "workspace/values/number_text.h"

namespace {

// ---- whole listings

// The rows that the exact path alone writes.
std::string PlainRows(Workspace& w) {
  std::string rows;
  if (!OpenDatabase(w)) return rows;
  const Limits limits = LimitsOf(w.Tarnwick);
  SiteRecord record;
  Columns columns;
  int count = 0;
  for (std::string_view line; ReadLine(w.database, line);) {
    if (!ReadRecord(line, record) || !AppendExactRow(w, record, limits, columns, rows)) continue;
    rows += ++count % 10 == 0 ? "\r\n\r\n" : "\r\n";
  }
  CloseDatabase(w);
  return rows;
}

// The values of the workspace that a run changes.
auto StateOf(const Workspace& w) {
  const MainWindow& main = w.Tarnwick;
  return std::tuple(w.sitename, w.Lat, w.Lon, w.Resolution, w.Dist, w.Bearing, w.Backbearing,
                    w.DistUncert, w.BearUncert, main.EastNorth.text, main.OSMap.caption,
                    main.Xdim.caption, main.Ydim.caption, main.InputText.text);
}

std::string SomeOf(std::mt19937& random, std::string_view characters, std::size_t count) {
  std::string text;
  while (text.size() < count) text += characters[random() % characters.size()];
  return text;
}

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kSubsquares = "ABCDEFGHIJKLMNOPQRSTUVWX";

// A position of any kind, mostly in a few squares, some at the edge of the grid and of its box, and
// texts that are almost references.
std::string PositionFrom(std::mt19937& random) {
  // clang-format off
  static const char* const kStarts[] = {
      "SU", "SU", "SU", "TQ", "TQ", "NY", "su", "HP", "SV", "SY", "JC", "AA", "ZI", "VZ",
      "IO91", "IO91", "IO91", "JO01", "JO02", "io83", "IN79", "IO62", "JJ00", "RR99", "AR09"};
  static const char* const kOdd[] = {
      "51.5 -1.2", "", "IO9", "SU 123 456", "SU1234X6", "IO91WMX", "IO91YA", "IO91WMAB", "\xC9O91WM",
      "SU12345E", "SU1234567", "IO91WM44MMXX", "SU12345678901234", "IO91WM44mm33", "IO91 W M 4 4",
      "SU12 34567890", "SU12&HFF", "SU123412E9", "IO91WM44MM\xFF\xFF", "IO91WM44MM",
      "SU12345678901234567890123456789012345678901234567890"};
  // clang-format on
  if (random() % 10 == 0) return kOdd[random() % std::size(kOdd)];
  std::string text = kStarts[random() % std::size(kStarts)];
  if (text.size() == 2)
    return text + SomeOf(random, kDigits, 2) + (random() % 9 == 0 ? " " : "") +
           SomeOf(random, kDigits, 2 + 2 * (random() % 4));
  text += SomeOf(random, kSubsquares, 2);
  if (random() % 3 != 0) text += SomeOf(random, kDigits, 2);
  return text.size() == 8 && random() % 2 == 0 ? text + SomeOf(random, "ALMxX", 2) : text;
}

std::string RecordsFrom(std::mt19937& random, int count) {
  std::string records;
  for (int i = 0; i < count; ++i) {
    records += SomeOf(random, "HTx", 1) + SomeOf(random, "ill op~aEND", random() % 9) + "~" +
               PositionFrom(random) + (random() % 40 == 0 ? "~ENDENDEND\r\n" : "~a remark\r\n");
    if (random() % 50 == 0) records += "no record\r\n";
  }
  // A last record outside the box of GenNGR, in a square of degrees that is partly in the box.
  if (random() % 2 == 0) records += "Sea~JO01" + SomeOf(random, "VWX", 1) + "A\r\n";
  return records;
}

TEST(Listing, AcceleratedRowsEqualPlainRows) {
  const int records = std::getenv("TARNWICK_DEEP") != nullptr ? 20'000 : 4'000;
  std::mt19937 random(1);
  const char* const homes[] = {"SU70004500",     "51.5N 1.25W",   "IO91WM44MM",
                               "0 0N 0E",        "51.5S 178.75E", "94N 3E",
                               "52N 361W",       "50.06N 5.7W",   "51.518836S 179.871003E",
                               "51.18N 1.0006W", "10N 179.9W",    "90N 0E"};
  const struct {
    const char *minimum, *maximum, *from, *to, *name;  // =: the distance of the last record
  } runs[] = {{"0", "99999", "0", "360", ""},  {"", "20", "0", "360", ""},
              {"5", "50", "350", "10", ""},    {"100", "9999", "45", "225.5", "ill"},
              {"0", "99999", "90", "90", ""},  {"19000", "99999", "0", "180", "t"},
              {"0", "16.2", "0", "360", "To"}, {"300", "400", "180", "0", ""},
              {"=", "99999", "0", "360", ""},  {"0", "=", "0", "360", ""}};
  std::size_t rows = 0;
  for (const char* home : homes) {
    HeadlessPlatform platform;
    platform.files = {{kDefaultDatabase, RecordsFrom(random, records)}};
    std::string last;
    for (const auto& run : runs) {
      Workspace plain(platform);
      Workspace fast(platform);
      for (Workspace* w : {&plain, &fast}) {
        MainWindow& main = w->Tarnwick;
        main.LocDatabase.text = kDefaultDatabase;
        main.ListFileName.text = "List";
        main.InputText.text = home;
        FindIt_Click(*w);
        SetHome_Click(*w);
        main.MinDisttext.text = *run.minimum == '=' ? last : run.minimum;
        main.MaxDistText.text = *run.maximum == '=' ? last : run.maximum;
        main.FromBearText.text = run.from;
        main.ToBearText.text = run.to;
        main.Srchtext.text = run.name;
      }
      const std::string expected = PlainRows(plain);
      MakeList_Click(fast);
      const std::string& listing = (*platform.files)["List"];
      ASSERT_TRUE(listing.substr(listing.find("Distance\r\n\r\n") + 12) == expected) << home;
      ASSERT_EQ(StateOf(fast), StateOf(plain)) << home;
      rows += expected.size() / (kRowLength + 2);
      last = NumberToText(*plain.Dist);
    }
  }
  EXPECT_GT(rows, 40000U);
}

// ---- single places

constexpr auto kGrid = CoordinateForm::EastingNorthing;
constexpr auto kDegrees = CoordinateForm::LonLat;

// Returns by the exact formulas what PlaceAt returns.
ApproximatePlace ExactPlace(const HomeStation& home, CoordinateForm form, double x, double y) {
  ApproximatePlace place;
  if (form == kGrid) {
    GridToWGS84(x, y, place.y, place.x);
    place.figures = DistanceAndBearingsOf(home, place.y, place.x);
  } else {
    WGS84ToGrid(y, x, place.x, place.y);
    place.figures = DistanceAndBearingsOf(home, y, x);
  }
  return place;
}

void ExpectWithinBounds(const HomeStation& home, const LocalPolynomials& polynomials,
                        CoordinateForm form, double x, double y) {
  const ApproximatePlace exact = ExactPlace(home, form, x, y);
  const ApproximatePlace place = PlaceAt(home, polynomials, form, x, y);
  ASSERT_NEAR(place.x, exact.x, form == kGrid ? kLonError : kMetreError) << x << " " << y;
  ASSERT_NEAR(place.y, exact.y, form == kGrid ? kLatError : kMetreError) << x << " " << y;
  if (!AreWellConditioned(place.figures)) return;
  ASSERT_NEAR(place.figures.distance, exact.figures.distance, kDistanceError) << x << " " << y;
  ASSERT_NEAR(place.figures.bearing, exact.figures.bearing, kBearingError) << x << " " << y;
  ASSERT_NEAR(place.figures.backbearing, exact.figures.backbearing, kBearingError) << x << " " << y;
}

// Every square, from home stations near and far, and from those where a small shift changes the
// bearing much: close to the place, to its antipode or to a pole, and almost due north or south.
TEST(ApproximatePlace, ErrorsStayWithinTheirBounds) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> unit(0, 1);
  std::vector<std::pair<CoordinateForm, Rectangle>> squares;
  for (int column = 0; column < 7; ++column)
    for (int row = 0; row < 14; ++row)
      squares.push_back({kGrid, {column * 1e5, row * 1e5, 1e5, 1e5}});
  for (int column = 0; column < 5; ++column)
    for (int row = 0; row < 12; ++row)
      squares.push_back({kDegrees, {column * 2.0 - 8, row + 49.0, 2, 1}});
  for (const auto& [form, over] : squares) {
    const auto expect = [&, form = form, over = over](double homeLat, double homeLon, double x,
                                                      double y, int rounds) {
      const HomeStation home = HomeStationAt(homeLat, homeLon);
      const LocalPolynomials polynomials = PolynomialsOf(home, over, form);
      for (int round = 0; round < rounds && !HasFatalFailure(); ++round) {
        ExpectWithinBounds(home, polynomials, form, x, y);
        // One in four on the western or southern edge.
        x = over.x + over.width * (round % 8 == 0 ? 0 : unit(random));
        y = over.y + over.height * (round % 8 == 1 ? 0 : unit(random));
      }
    };
    const double x = over.x + over.width * unit(random);
    const double y = over.y + over.height * unit(random);
    for (const auto& [lat, lon] :
         {std::pair(51.5, -1.25), {57., -3.4}, {-38.66, 178.02}, {84.9, 100.}, {94., 3.}})
      expect(lat, lon, x, y, 300);
    const ApproximatePlace place = ExactPlace(HomeStationAt(0, 0), form, x, y);
    const double lat = form == kGrid ? place.y : y;
    const double lon = form == kGrid ? place.x : x;
    for (const double shift : {1e-6, -1e-4, 1e-2, 5e-2}) {
      expect(lat + shift, lon + shift, x, y, 1);
      expect(-lat, lon + 180 + shift, x, y, 1);
      expect(lat + 1, lon + shift / 1000, x, y, 1);
      expect(lat - 1, lon - shift / 1000, x, y, 1);
      expect(90 - std::fabs(shift) / 1000, lon + 90, x, y, 1);
    }
    if (HasFatalFailure()) return;
  }
}

// The values of a place, scaled so that their whole parts decide what a row shows: two coordinates,
// the distance and both bearings; and the bounds on their errors.
struct Decision {
  double value, error;
};
std::array<Decision, 5> DecisionsOf(const ApproximatePlace& place, CoordinateForm form) {
  const auto& [distance, bearing, backbearing] = place.figures;
  const Decision ofGrid[] = {{place.x / 10 + 0.5, kMetreError / 10},
                             {place.y / 10 + 0.5, kMetreError / 10}};
  const Decision ofDegrees[] = {{(place.x + 180) / 2 * 5760, kLonError / 2 * 5760},
                                {(place.y + 90) * 5760, kLatError * 5760}};
  const auto* const coordinates = form == kGrid ? ofDegrees : ofGrid;
  return {coordinates[0],
          coordinates[1],
          {distance * 10 + 0.5, kDistanceError * 10},
          {bearing * 10 + 0.5, kBearingError * 10},
          {backbearing * 10 + 0.5, kBearingError * 10}};
}

// A run of the accelerator from a home station at 51.5 N 1.25 W, in one square.
struct SquareRun {
  explicit SquareRun(CoordinateForm formOfSquare, const Limits& limitsOfRun)
      : form(formOfSquare), limits(limitsOfRun) {
    Try();
  }
  // Tries a random record, or the last one again.
  std::optional<bool> Try(bool again = false) {
    if (!again)
      line = form == kGrid ? "Site~SE" + SomeOf(random, kDigits, 10)
                           : "Site~JO02" + SomeOf(random, kSubsquares, 2) +
                                 SomeOf(random, kDigits, 2) + SomeOf(random, kSubsquares, 2);
    SiteRecord record;
    EXPECT_TRUE(ReadRecord(line, record));
    std::string row;
    return TryFastRow(fast, record, row);
  }
  // The place of the last record.
  ApproximatePlace Exact() const {
    double x = 0, y = 0, resolution = 0;
    if (form == kGrid)
      NGRToGrid(line.substr(5), x, y, resolution);
    else
      LocatorToWGS84(line.substr(5), y, x, resolution);
    return ExactPlace(fast.home, form, x, y);
  }

  CoordinateForm form;
  Limits limits;
  ListingAccelerator fast{limits, HomeStationAt(51.5, -1.25)};
  std::mt19937 random{1};
  std::string line;
};

const Limits kNoLimits{0, 99999, 0, 360, CaseBlindText("")};

// Close to a decision the polynomials may be off by more than the distance to it.
TEST(ListingAccelerator, LeavesCloseDecisionsToTheExactPath) {
  for (const CoordinateForm form : {kGrid, kDegrees}) {
    SquareRun run(form, kNoLimits);
    int found[5] = {};
    int listed = 0;
    for (int round = 0; round < 150'000; ++round) {
      const std::optional<bool> outcome = run.Try();
      if (outcome.value_or(false)) ++listed;
      const auto decisions = DecisionsOf(run.Exact(), form);
      for (std::size_t i = 0; i < decisions.size(); ++i) {
        const auto& [value, error] = decisions[i];
        if (std::fabs(value - std::round(value)) > error / 2) continue;
        ++found[i];
        ASSERT_EQ(outcome, std::nullopt) << run.line << " " << i;
      }
    }
    for (const int count : found) EXPECT_GE(count, 3);
    EXPECT_GT(listed, 130'000);
  }
}

TEST(ListingAccelerator, LeavesFiguresNearALimitToTheExactPath) {
  for (const CoordinateForm form : {kGrid, kDegrees}) {
    const auto [distance, bearing, backbearing] = SquareRun(form, kNoLimits).Exact().figures;
    for (const double error : {-0.5, 0.5}) {
      const double atDistance = distance + error * kDistanceError;
      const double atBearing = bearing + error * kBearingError;
      for (const Limits& limits : {Limits{atDistance, 99999, 0, 360, kNoLimits.name},
                                   {0, atDistance, 0, 360, kNoLimits.name},
                                   {0, 99999, atBearing, 360, kNoLimits.name},
                                   {0, 99999, 0, atBearing, kNoLimits.name}})
        EXPECT_EQ(SquareRun(form, limits).Try(true), std::nullopt);
    }
  }
}

}  // namespace
