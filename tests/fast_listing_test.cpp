// The numbers and the decisions of the listing's accelerator, compared with the exact formulas.
#include "sites/listing/fast_listing.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <optional>
#include <random>
#include <utility>
#include <vector>

#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "geo/national_grid.h"
#include "random_text.h"
#include "sites/listing/approximate_place.h"

namespace {

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
