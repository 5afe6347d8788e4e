#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "geo/datum.h"
#include "geo/dist_bear.h"
#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "geo/national_grid.h"
#include "geo/trigonometry.h"
#include "platform/headless/headless.h"
#include "workspace/values/strings.h"

namespace {

class Geo : public testing::Test {
 protected:
  HeadlessPlatform platform;
  Workspace w{platform};

  std::string Reference(double lat, double lon, double resolution) {
    w.Resolution = resolution;
    std::string ngr = "old";
    GenNGR(w, lat, lon, ngr);
    return ngr;
  }
};

// Returns the characters of one axis, one by one: the order of the arithmetic decides at the edges.
std::string AxisByStep(double axis) {
  const double field = std::floor(axis / 10);
  const double inField = axis - 10 * field;
  const double square = std::floor(inField);
  const double inSquare = inField - square;
  const double subsquare = std::floor(inSquare * 24);
  const double inSubsquare = inSquare - subsquare / 24;
  const double extended = std::floor(inSubsquare * 240);
  const double finest = std::floor((inSubsquare - extended / 240) * 5760);
  std::string text;
  for (const double code :
       {'A' + field, '0' + square, 'A' + subsquare, '0' + extended, 'A' + finest})
    text += CharOf(static_cast<int>(std::clamp(code, -1.0, 256.0)));
  return text;
}

TEST_F(Geo, LocatorsAtCellEdgesEqualThoseMadeStepByStep) {
  std::mt19937 random(1);
  std::string lc;
  for (int round = 0; round < 100'000; ++round) {
    double lat = static_cast<double>(random() % (180 * 5760)) / 5760 - 90;
    double lon = static_cast<double>(random() % (180 * 5760)) / 2880 - 180;
    if (round % 2 == 0) lat = std::nextafter(lat, random() % 2 == 0 ? 99 : -99);
    if (round % 2 == 0) lon = std::nextafter(lon, random() % 2 == 0 ? 999 : -999);
    if (round % 5 == 0) lat *= 1.5;  // beyond the poles
    GenLocator(lat, lon, lc);
    const std::string byLon = AxisByStep((lon + 180) / 2);
    const std::string byLat = AxisByStep(lat + 90);
    for (std::size_t i = 0; i < 5; ++i)
      ASSERT_EQ(lc.substr(2 * i, 2), (std::string{byLon[i], byLat[i]})) << lat << " " << lon;
  }
}

TEST_F(Geo, GenLocatorTruncatesAndNeverClamps) {
  const struct {
    double lat, lon;
    std::string lc;
  } rows[] = {
      // clang-format off
      {48.85837, 2.294481, "JN18DU56IA"}, {-33.8568, 151.2153, "QF56OD54UI"},
      {-90, -180, "AA00AA00AA"}, {89.9999999, 179.9999999, "RR99XX99XX"}, {90, 180, "SS00AA00AA"},
      {51.3125, 0, "JO01AH04AX"},  // on an edge: rounding leaves just less than 5 extended squares
      {999, 999, "{\xAD""99MA00AA"}, {1e300, -1e300, {"\0\xFF\0\xFF\0\xFF\0\xFF\0\xFF", 10}},
      // clang-format on
  };
  std::string lc;
  for (const auto& row : rows) {
    GenLocator(row.lat, row.lon, lc);
    EXPECT_EQ(lc, row.lc) << row.lat << ' ' << row.lon;
  }
}

TEST_F(Geo, GenNGRChoosesItsDigitsByTheAccuracy) {
  const struct {
    double lat, lon, resolution;
    const char *ngr, *square;  // 10 km square on the map button
  } rows[] = {
      // clang-format off
      {51.5, -0.1, 5, "TQ32 80", "TQ38"}, {51.5, -0.1, 2.001, "TQ32 80", "TQ38"},
      {51.5, -0.1, 2, "TQ320 796", "TQ37"}, {51.5, -0.1, 0.1, "TQ320 796", "TQ37"},
      {51.5, -0.1, 0.099, "TQ3198 7961", "TQ37"}, {51.5, -0.1, 0.01, "TQ3198 7961", "TQ37"},
      {51.5, -0.1, 0, "TQ31979 79607", "TQ37"}, {53, -2, 0.005, "SK00097 44742", "SK04"},
      {60.15, -1.15, 0.005, "HU47297 40915", "HU44"}, {53, -2.6, 5, "SJ60 45", "SJ64"},
      {61, 1.8, 0.005, "JM05553 41247", "JM04"}, {54, -8, 0.005, "SA07011 72675", "SA07"},
      // Off the grid the square of the old place stays.
      {49, -2, 0, "Not valid", "SA07"}, {48.99, -2, 0, "", "SA07"}, {61.01, -2, 0, "", "SA07"},
      {55, -8.01, 0, "", "SA07"}, {55, 1.81, 0, "", "SA07"},
      // clang-format on
  };
  for (const auto& [lat, lon, resolution, ngr, square] : rows) {
    EXPECT_EQ(Reference(lat, lon, resolution), ngr) << lat << ' ' << lon;
    EXPECT_EQ(w.Tarnwick.OSMap.caption, square) << ngr;
  }
  // A rounding up to the edge of a square carries into the next square.
  for (const auto& [typed, ngr] : {std::pair("SU9960050000", "TQ00 50"),
                                   {"SU5000099700", "SP50 00"},
                                   {"SE9960099700", "OV00 00"}}) {
    DecodeNGR(w, typed, w.Lat, w.Lon);
    EXPECT_EQ(Reference(w.Lat, w.Lon, 5), ngr);
  }
}

TEST_F(Geo, DatumAndProjectionMatchPublishedFigures) {
  double lat = 0, lon = 0;
  WGS84ToAiry(51.5, -0.1, lat, lon);
  EXPECT_NEAR(lat, 51.49948829, 6e-9);
  EXPECT_NEAR(lon, -0.09839068, 6e-9);
  AiryToWGS84(51.49948829, -0.09839068, lat, lon);
  EXPECT_NEAR(lat, 51.5, 6e-9);
  EXPECT_NEAR(lon, -0.10000004, 6e-9);
  // 52 39' 27.2531" N, 1 43' 4.5177" E on OSGB36 is 651409.903 E, 313177.270 N.
  AiryToWGS84(52.65757030555, 1.71792158333, lat, lon);
  EXPECT_EQ(Reference(lat, lon, 0), "TG51410 13177");
  for (const auto& [x, y] : {std::pair(1., 1.), {1., -1.}, {-1., 1.}, {-1., -1.}, {0., -1.}})
    EXPECT_NEAR(ATAN2(x, y), std::atan2(y, x), 1e-12);
  for (int i = -100; i <= 100; ++i) EXPECT_NEAR(ACS(i / 100.), std::acos(i / 100.), 2e-12);
}

// Near the corners of the grid, where the highest terms of the series reach centimetres: the
// figures of this implementation, to a tenth of a millimetre.
TEST_F(Geo, ProjectionUsesAllTermsOfTheSeries) {
  const struct {
    double lat, lon, easting, northing, backLat, backLon;
  } rows[] = {
      // clang-format off
      {50.1, -7.5, 6841.0838, 36713.1279, 50.099999989, -7.500000008},
      {60.9, -7.5, 101926.8976, 1236666.8437, 60.899999979, -7.500000020},
      {60.9, 1.7, 600779.3231, 1229810.4767, 60.899999990, 1.699999944},
      {50.1, 1.7, 664689.0555, 28768.6377, 50.100000005, 1.699999957},
      // clang-format on
  };
  for (const auto& [lat, lon, easting, northing, backLat, backLon] : rows) {
    double x = 0, y = 0;
    WGS84ToGrid(lat, lon, x, y);
    EXPECT_NEAR(x, easting, 1e-4) << lat << ' ' << lon;
    EXPECT_NEAR(y, northing, 1e-4) << lat << ' ' << lon;
    GridToWGS84(x, y, y, x);
    EXPECT_NEAR(x, backLon, 1e-9) << lat << ' ' << lon;
    EXPECT_NEAR(y, backLat, 1e-9) << lat << ' ' << lon;
  }
}

// How far a result is from the exact value, in units of its last place.
double Units(double result, long double exact) {
  const double size = std::fabs(static_cast<double>(exact));
  return static_cast<double>(std::fabs(result - exact)) / (std::nextafter(size, HUGE_VAL) - size);
}

// Compares with the library's functions, which have more digits on most systems; where they have
// none, each of the two results may be off. A seam is an argument at which the procedures change
// from one formula to another.
TEST(Trigonometry, ErrsByAboutAUnitInTheLastPlace) {
#ifdef _WIN32
  GTEST_SKIP() << "the library's long sine is off near multiples of pi";
#endif
  constexpr double kOfLibrary = std::numeric_limits<long double>::digits > 53 ? 0 : 1;
  std::mt19937_64 random(4);
  std::vector<double> angles;
  for (int i = 0; i < 10000; ++i) {
    const double usual = std::uniform_real_distribution<double>(-7, 7)(random);
    for (const double angle : {usual, usual * 1e5, std::bit_cast<double>(random())})
      if (std::isnormal(angle)) angles.push_back(angle);
  }
  for (int turns = -500; turns < 500; ++turns) angles.push_back(turns * 1.5707963267948966);
  for (const double seam : {1e-300, 0x1p-27, 0.125, 0.785, 1., 1.375, 0x1p20})
    for (const double angle : {seam, std::nextafter(seam, 0), std::nextafter(seam, 1e300), -seam})
      angles.push_back(angle);
  for (const double angle : angles) {
    const long double exactly = angle;
    EXPECT_LT(Units(Arctangent(angle), std::atan(exactly)), 1.5 + kOfLibrary) << angle;
    if (std::fabs(angle) >= 0x1p20) continue;
    EXPECT_LT(Units(Sine(angle), std::sin(exactly)), 1 + kOfLibrary) << angle;
    EXPECT_LT(Units(Cosine(angle), std::cos(exactly)), 1 + kOfLibrary) << angle;
  }
}

// The expected values of huge angles are those of the remainder after division by the double
// closest to 2 pi.
TEST(Trigonometry, HasExactValues) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  const struct {
    double angle, sine, cosine;
  } rows[] = {{0, 0, 1},
              {5e-324, 5e-324, 1},
              {0x1p20, 0x1.526ccb307210dp-2, 0x1.e33ada92e0760p-1},
              {0x1p30, -0x1.3c12341c4dec9p-1, 0x1.92cb478714a3ep-1},
              {1e22, 0x1.bf809b25497f6p-1, 0x1.f189552bfea00p-2},
              {1e200, -0x1.0a4eb79e424ddp-1, -0x1.b54ac299f5c9ap-1},
              {HUGE_VAL, none, none},
              {none, none, none}};
  const auto text = [](double number) {
    return std::isnan(number) ? "nan" : (std::ostringstream() << std::hexfloat << number).str();
  };
  for (const auto& [angle, sine, cosine] : rows) {
    EXPECT_EQ(text(Sine(angle)), text(sine)) << angle;
    EXPECT_EQ(text(Sine(-angle)), text(-sine)) << angle;  // -0 too
    EXPECT_EQ(text(Cosine(angle)), text(cosine)) << angle;
    EXPECT_EQ(text(Cosine(-angle)), text(cosine)) << angle;
  }
  EXPECT_EQ(Arctangent(1) * 4, 3.141592653589793);
  EXPECT_EQ(Arctangent(-HUGE_VAL) * 2, -3.141592653589793);
  EXPECT_EQ(text(Arctangent(-0.)), text(-0.));
  EXPECT_EQ(Arctangent(5e-324), 5e-324);
  EXPECT_TRUE(std::isnan(Arctangent(none)));
}

}  // namespace
