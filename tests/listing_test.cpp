#include "sites/listing/listing.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <vector>

#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "geo/national_grid.h"
#include "platform/headless/headless.h"
#include "sites/database/line_reader.h"
#include "sites/listing/approximate_place.h"
#include "sites/listing/listing_row.h"
#include "workspace/commands/home_station.h"
#include "workspace/commands/use_this.h"
#include "workspace/values/number_text.h"

namespace {

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

std::string RowsOfFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string content(std::istreambuf_iterator<char>(file), {});
  const std::string heading = "Back           Distance\r\n\r\n";
  return content.substr(content.find(heading) + heading.size());
}

// The values of the workspace that a run changes.
auto StateOf(const Workspace& w) {
  const MainWindow& main = w.Tarnwick;
  return std::tuple(w.sitename, w.Lat, w.Lon, w.Resolution, w.Dist.number, w.Bearing.number,
                    w.Backbearing.number, w.DistUncert.number, w.BearUncert.number,
                    main.EastNorth.text, main.OSMap.caption, main.Xdim.caption, main.Ydim.caption,
                    main.InputText.text);
}

class Listing : public testing::Test {
 protected:
  Listing() { std::filesystem::create_directories(folder); }
  ~Listing() override { std::filesystem::remove_all(folder); }

  void Write(const std::string& records) {
    std::ofstream(folder + "/Sites.dat", std::ios::binary) << records;
  }

  // Lists the database with and without the accelerator, and compares rows and workspaces. Sets
  // `last` to the distance of the last record; returns the number of rows.
  std::size_t Compare(const std::function<void(Workspace&)>& prepare, const std::string& what) {
    HeadlessPlatform platform;
    Workspace plain(platform);
    Workspace fast(platform);
    for (Workspace* w : {&plain, &fast}) {
      w->Tarnwick.LocDatabase.text = folder + "/Sites.dat";
      w->Tarnwick.ListFileName.text = folder + "/List.txt";
      prepare(*w);
    }
    const std::string expected = PlainRows(plain);
    MakeList_Click(fast);
    EXPECT_TRUE(RowsOfFile(folder + "/List.txt") == expected) << what;
    EXPECT_EQ(StateOf(fast), StateOf(plain)) << what;
    last = NumberToText(plain.Dist.number);
    return expected.size() / (kRowLength + 2);
  }

  const std::string folder = testing::TempDir() + "tarnwick-listing" + std::to_string(getpid());
  std::string last;
};

// Returns records of every kind, most of them in a few squares. They include places near the first
// home station and due north of it, cells at the edge of the grid and of its box, and texts that
// are almost references.
std::string RecordsFrom(std::mt19937& random, int count) {
  const auto one = [&random](std::string_view of) { return of[random() % of.size()]; };
  const auto some = [&](std::string_view of, auto number) {
    std::string text;
    for (; number > 0; --number) text += one(of);
    return text;
  };
  const std::string_view digits = "0123456789";
  const char* const squares[] = {"SU", "TQ", "NY", "HP", "SV", "su", "JC", "AA", "ZI", "VZ"};
  const char* const fields[] = {"IO91", "JO01", "JO02", "IN79", "IO62",
                                "io83", "JJ00", "RR99", "AR09", "IO71"};
  const char* const odd[] = {"51.5 -1.2",
                             "",
                             "IO9",
                             "SU 123 456",
                             "SU1234X6",
                             "IO91WMX",
                             "IO91YA",
                             "IO91WMAB",
                             "\xC9O91WM",
                             "SU12345E",
                             "SU1234567",
                             "IO91WM44MMXX",
                             "SU12345678901234",
                             "IO91WM44mm33",
                             "IO91 W M 4 4",
                             "SU12 34567890",
                             "SU12&HFF",
                             "SU123412E9",
                             "IO91WM44MM\xFF\xFF",
                             "SU12345678901234567890123456789012345678901234567890",
                             "IO91WM44MMAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA"};
  std::string records;
  for (int i = 0; i < count; ++i) {
    records += one("HTx") + some("ill op~aEND", random() % 9) + "~";
    const auto kind = random() % 100;
    if (kind < 45) {
      const auto half = 2 + random() % 4;
      records += squares[random() % (random() % 4 == 0 ? std::size(squares) : 4)];
      records += some(digits, 2) + (random() % 9 == 0 ? " " : "") + some(digits, 2 * half - 2);
    } else if (kind < 50) {
      records += random() % 2 == 0 ? "IO91WM44MM"
                                   : "SU7" + some("0", 2) + some("09", 1) + "45" + some("09", 2);
    } else if (kind < 90) {
      records += fields[random() % (random() % 4 == 0 ? std::size(fields) : 4)];
      records += some("ABCDEFGHIJKLMNOPQRSTUVWX", 2);
      if (random() % 3 != 0)
        records += some(digits, 2) + (random() % 2 == 0 ? some("ALMxX", 2) : "");
    } else {
      records += odd[random() % std::size(odd)];
    }
    records += (random() % 40 == 0 ? "~ENDENDEND" : "~a remark") + std::string("\r\n");
    if (random() % 50 == 0) records += "no record\r\n";
  }
  // A last record outside the box of IsInGridBox, in a square of degrees that is partly in the box.
  if (random() % 2 == 0) records += "Sea~JO01" + some("VWX", 1) + some("ABC", 1) + "\r\n";
  return records;
}

// A distance of nullptr means the distance of the last record.
struct Restriction {
  const char *minimum, *maximum, *from, *to, *name;
  void WriteTo(MainWindow& main) const {
    main.MinDisttext.text = minimum;
    main.MaxDistText.text = maximum;
    main.FromBearText.text = from;
    main.ToBearText.text = to;
    main.Srchtext.text = name;
  }
};

TEST_F(Listing, AcceleratedRowsEqualPlainRows) {
  const int records = std::getenv("TARNWICK_DEEP") != nullptr ? 20'000 : 4'000;
  std::mt19937 random(1);
  const char* const homes[] = {"SU70004500",     "51.5N 1.25W",   "IO91WM44MM",
                               "0 0N 0E",        "51.5S 178.75E", "94N 3E",
                               "52N 361W",       "50.06N 5.7W",   "51.518836S 179.871003E",
                               "51.18N 1.0006W", "10N 179.9W",    "90N 0E"};
  const Restriction runs[] = {
      {"0", "99999", "0", "360", ""},     {"", "20", "0", "360", ""},
      {"5", "50", "350", "10", ""},       {"100", "9999", "45", "225.5", "ill"},
      {"0", "99999", "90", "90", ""},     {"19000", "99999", "0", "180", "t"},
      {"0", "16.2", "0", "360", "To"},    {"300", "400", "180", "0", ""},
      {nullptr, "99999", "0", "360", ""}, {"0", nullptr, "0", "360", ""}};
  std::size_t rows = 0;
  for (const char* home : homes) {
    Write(RecordsFrom(random, records));
    for (const Restriction& run : runs) {
      const auto prepare = [&](Workspace& w) {
        w.Tarnwick.InputText.text = home;
        FindIt_Click(w);
        SetHome_Click(w);
        Restriction all = run;
        if (all.minimum == nullptr) all.minimum = last.c_str();
        if (all.maximum == nullptr) all.maximum = last.c_str();
        all.WriteTo(w.Tarnwick);
      };
      rows += Compare(prepare, home);
      if (HasFailure()) return;
    }
  }
  EXPECT_GT(rows, 40000U);
}

constexpr auto kGrid = CoordinateForm::EastingNorthing;
constexpr auto kDegrees = CoordinateForm::LonLat;

struct Square {
  CoordinateForm form;
  Rectangle over;
};

// A place by the exact formulas, as PlaceAt supplies it.
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

// Compares every square, from home stations near and far, with the exact formulas.
TEST(ApproximatePlace, ErrorsStayWithinTheirBounds) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> unit(0, 1);
  const HomeStation homes[] = {HomeStationAt(51.5, -1.25), HomeStationAt(57, -3.4),
                               HomeStationAt(-38.66, 178.02), HomeStationAt(84.9, 100),
                               HomeStationAt(94, 3)};
  std::vector<Square> squares;
  for (int column = 0; column < 7; ++column)
    for (int row = 0; row < 14; ++row)
      squares.push_back({kGrid, {column * 1e5, row * 1e5, 1e5, 1e5}});
  for (int column = 0; column < 5; ++column)
    for (int row = 0; row < 12; ++row)
      squares.push_back({kDegrees, {column * 2.0 - 8, row + 49.0, 2, 1}});
  for (const auto& [form, over] : squares) {
    for (const HomeStation& home : homes) {
      const LocalPolynomials polynomials = PolynomialsOf(home, over, form);
      for (int round = 0; round < 400; ++round) {
        // One in four on the western or southern edge.
        const double x = over.x + over.width * (round % 8 == 0 ? 0 : unit(random));
        const double y = over.y + over.height * (round % 8 == 1 ? 0 : unit(random));
        const ApproximatePlace exact = ExactPlace(home, form, x, y);
        const ApproximatePlace place = PlaceAt(home, polynomials, form, x, y);
        ASSERT_NEAR(place.x, exact.x, form == kGrid ? kLonError : kMetreError) << x << " " << y;
        ASSERT_NEAR(place.y, exact.y, form == kGrid ? kLatError : kMetreError) << x << " " << y;
        ASSERT_NEAR(place.figures.distance, exact.figures.distance, kDistanceError);
        if (!AreWellConditioned(place.figures)) continue;
        ASSERT_NEAR(place.figures.bearing, exact.figures.bearing, kBearingError);
        ASSERT_NEAR(place.figures.backbearing, exact.figures.backbearing, kBearingError);
      }
    }
  }
}

// The values of a place, scaled so that their whole parts decide what a row shows: two coordinates,
// the distance and both bearings.
std::array<double, 5> DecisionsOf(const ApproximatePlace& place, CoordinateForm form) {
  const double x = form == kGrid ? (place.x + 180) / 2 * 5760 : place.x / 10 + 0.5;
  const double y = form == kGrid ? (place.y + 90) * 5760 : place.y / 10 + 0.5;
  const auto& [distance, bearing, backbearing] = place.figures;
  return {x, y, distance * 10 + 0.5, bearing * 10 + 0.5, backbearing * 10 + 0.5};
}

struct Record {
  std::string position;
  double x = 0, y = 0;
};

// A record of ten digits on the grid.
Record GridRecord(int easting, int northing) {
  const auto [first, second] = SquareLetters(easting / 100000, northing / 100000);
  const double digits = 1e10 + easting % 100000 * 1e5 + northing % 100000;
  return {std::string{first, second} + FormatPicture(digits, "0").substr(1), 1.0 * easting,
          1.0 * northing};
}

// A record of ten characters in a square of degrees.
Record LocatorRecord(const Rectangle& over, std::mt19937& random) {
  Record record;
  GenLocator(over.y + 0.5, over.x + 1, record.position);
  for (std::size_t i = 4; i < 10; ++i)
    record.position[i] = static_cast<char>(i / 2 == 3 ? '0' + random() % 10 : 'A' + random() % 24);
  double resolution = 0;
  LocatorToWGS84(record.position, record.y, record.x, resolution);
  return record;
}

const Square kSquares[] = {{kGrid, {600000, 1300000, 100000, 100000}}, {kDegrees, {-8, 60, 2, 1}}};

Record RandomRecord(const Square& square, std::mt19937& random) {
  if (square.form == kDegrees) return LocatorRecord(square.over, random);
  return GridRecord(static_cast<int>(square.over.x) + static_cast<int>(random() % 100000),
                    static_cast<int>(square.over.y) + static_cast<int>(random() % 100000));
}

std::string FillersOf(const Square& square, std::mt19937& random) {
  std::string records;
  for (int i = 0; i < 20; ++i)
    records += "Filler~" + RandomRecord(square, random).position + "\r\n";
  return records;
}

// Records of which the polynomials alone would show another cell or another reference.
TEST_F(Listing, PlacesAtADecisionTakeTheExactPath) {
  std::mt19937 random(1);
  const HomeStation home = HomeStationAt(51.5, -1.25);
  for (const Square& square : kSquares) {
    const LocalPolynomials polynomials = PolynomialsOf(home, square.over, square.form);
    const double margins[] = {square.form == kGrid ? kLonError / 2 * 5760 : kMetreError / 10,
                              square.form == kGrid ? kLatError * 5760 : kMetreError / 10};
    std::string records = FillersOf(square, random);
    int found[2] = {};
    for (int round = 0; round < 1'000'000; ++round) {
      const Record record = RandomRecord(square, random);
      const auto near =
          DecisionsOf(PlaceAt(home, polynomials, square.form, record.x, record.y), square.form);
      for (std::size_t i = 0; i < 2; ++i) {
        if (std::fabs(near[i] - std::round(near[i])) > margins[i]) continue;
        const ApproximatePlace exact = ExactPlace(home, square.form, record.x, record.y);
        if (std::floor(DecisionsOf(exact, square.form)[i]) == std::floor(near[i])) continue;
        ++found[i];
        records += "Site~" + record.position + "\r\n";
      }
    }
    EXPECT_GE(found[0], 3);
    EXPECT_GE(found[1], 3);
    Write(records);
    Compare([&](Workspace& w) { w.BaseLat = home.lat, w.BaseLong = home.lon; }, "places");
  }
}

// Home stations from which the polynomials alone would show another tenth of one record's distance,
// bearing or back bearing, and limits that lie between its exact and its approximate figures.
TEST_F(Listing, FiguresAtADecisionTakeTheExactPath) {
  std::mt19937 random(1);
  constexpr double kLat = 60.1;
  for (const Square& square : kSquares) {
    const Record record = RandomRecord(square, random);
    Write(FillersOf(square, random) + "Site~" + record.position + "\r\n");
    const auto placeFrom = [&](double lon, bool exactly) {
      const HomeStation home = HomeStationAt(kLat, lon);
      if (exactly) return ExactPlace(home, square.form, record.x, record.y);
      const LocalPolynomials polynomials = PolynomialsOf(home, square.over, square.form);
      return PlaceAt(home, polynomials, square.form, record.x, record.y);
    };
    for (std::size_t i = 2; i < 5; ++i) {
      const auto value = [&](double lon, bool exactly) {
        return DecisionsOf(placeFrom(lon, exactly), square.form)[i];
      };
      // The longitude of the home station at which the value crosses the whole number below its
      // value at 4.5 W.
      const double whole = std::floor(value(-4.5, true));
      const auto crossing = [&](bool exactly) {
        double below = -4.7;
        double above = -4.3;
        if (value(below, exactly) > value(above, exactly)) std::swap(below, above);
        for (int round = 0; round < 80; ++round) {
          const double middle = (below + above) / 2;
          (value(middle, exactly) < whole ? below : above) = middle;
        }
        return above;
      };
      const double lon = (crossing(true) + crossing(false)) / 2;
      EXPECT_NE(std::floor(value(lon, true)), std::floor(value(lon, false))) << i;
      Compare([&](Workspace& w) { w.BaseLat = kLat, w.BaseLong = lon; }, "tenth");
    }
    const DistanceAndBearings a = placeFrom(-4.5, true).figures;
    const DistanceAndBearings b = placeFrom(-4.5, false).figures;
    const std::string distance = NumberToText((a.distance + b.distance) / 2);
    const std::string bearing = NumberToText((a.bearing + b.bearing) / 2);
    const Restriction runs[] = {{distance.c_str(), "99999", "0", "360", ""},
                                {"0", distance.c_str(), "0", "360", ""},
                                {"0", "99999", bearing.c_str(), "360", ""},
                                {"0", "99999", "0", bearing.c_str(), ""}};
    for (const Restriction& run : runs) {
      const auto prepare = [&](Workspace& w) {
        w.BaseLat = kLat;
        w.BaseLong = -4.5;
        run.WriteTo(w.Tarnwick);
      };
      Compare(prepare, std::string(run.minimum) + " " + run.maximum + " " + run.from);
    }
  }
}

// Places whose bearing changes much with a small shift: a few metres from the home station and from
// its antipode, due north and south of it, and from a home station close to a pole.
TEST_F(Listing, IllConditionedBearingsTakeTheExactPath) {
  const Rectangle over{400000, 200000, 100000, 100000};
  std::mt19937 random(1);
  double lat = 0;
  double lon = 0;
  GridToWGS84(440000, 240000, lat, lon);
  std::string records = FillersOf({kGrid, over}, random);
  for (int i = 0; i < 20; ++i)
    for (int j = 0; j < 20; ++j)
      records += "Near~SP" + std::to_string(39990 + i) + std::to_string(39990 + j) + "\r\n";
  // A longitude between those of the exact and of the approximate place.
  const LocalPolynomials polynomials = PolynomialsOf(HomeStationAt(0, 0), over, kGrid);
  const double between =
      (lon + PlaceAt(HomeStationAt(0, 0), polynomials, kGrid, 440000, 240000).x) / 2;
  const struct {
    const char* what;
    double lat, lon;
  } homes[] = {{"near", lat, lon},
               {"antipode", -lat, lon + 180},
               {"north", lat - 1, between},
               {"south", lat + 1, between},
               {"pole", 89.99999999999, 3}};
  Write(records);
  for (const auto& home : homes) {
    const auto prepare = [&](Workspace& w) {
      w.BaseLat = home.lat;
      w.BaseLong = home.lon;
      w.Tarnwick.FromBearText.text = "270";  // through north, so that 0 is not near a limit
      w.Tarnwick.ToBearText.text = "269.95";
    };
    EXPECT_EQ(Compare(prepare, home.what), 420U);
  }
}

}  // namespace
