// The rows of a listing: those that the accelerator writes are compared with the exact path.
#include "sites/listing/listing.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iterator>
#include <random>
#include <sstream>
#include <tuple>

#include "platform/headless/headless.h"
#include "random_text.h"
#include "sites/database/line_reader.h"
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

// The values of the workspace that a run changes.
auto StateOf(const Workspace& w) {
  const MainWindow& main = w.Tarnwick;
  return std::tuple(w.sitename, w.Lat, w.Lon, w.Resolution, w.Dist, w.Bearing, w.Backbearing,
                    w.DistUncert, w.BearUncert, main.EastNorth.text, main.OSMap.caption,
                    main.Xdim.caption, main.Ydim.caption, main.InputText.text);
}

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

// Limits are inclusive. The header omits limits that exclude nothing, and a largest distance of
// 9999 km or more, which still applies.
TEST(Listing, HasTheSitesWithinAllLimits) {
  HeadlessPlatform platform;
  Workspace w{platform};
  platform.files.emplace();
  (*platform.files)[kDefaultDatabase] =
      "A hill~TQ309800\r\n"           // home: 0 km, 0 degrees
      "B hill~TQ309900\r\n"           // 10 km, 1.5
      "C HILL~TQ299900\r\n"           // 10 km, 355.8
      "D mast~TQ409800~the hill\r\n"  // 10 km, 91.5
      "E mast~TQ309999\r\n"           // 19.9 km, 1.5
      "Far off~RE78JR\r\n";           // 18,000 km, 42
  w.Tarnwick.LocDatabase.text = kDefaultDatabase;
  w.Tarnwick.ListFileName.text = "List";
  w.Tarnwick.InputText.text = "TQ309800";
  FindIt_Click(w);
  SetHome_Click(w);
  const struct {
    const char *minimum, *maximum, *from, *to, *name;
    const char *listed, *header;  // first letters of the rows, second letters of the limits
  } rows[] = {
      // clang-format off
      {"0", "99999", "0", "360", "", "ABCDEF", ""}, {"5", "15km", "0", "360", "", "BCD", "ia"},
      {"0", "0", "0", "360", "", "A", "a"}, {".01", "9999", "0", "360", "", "BCDE", "i"},
      {"0", "9998.9", "0", "360", "", "ABCDE", "a"}, {"", "", "", "", "", "", "ae"},
      {"0", "9999", "350", "10", "", "ABCE", "e"}, {"0", "9999", "350", "0", "", "AC", "e"},
      {"0", "9999", "0", "-10", "", "ABCDE", "e"}, {"0", "9999", "-10", "0", "", "A", "e"},
      {"0", "9999", "0", "359", "", "ABCDE", "e"}, {"0", "9999", ".5", "360", "", "BCDE", "e"},
      {"0", "9999", "0", "0", "", "", "e"},  // a sector without width excludes the home station too
      {"0", "9999", "1", "180", "", "BDE", "e"}, {"0", "9999", "0", "360", "hIlL", "ABC", "n"},
      // clang-format on
  };
  for (const auto& row : rows) {
    MainWindow& main = w.Tarnwick;
    main.MinDisttext.text = row.minimum;
    main.MaxDistText.text = row.maximum;
    main.FromBearText.text = row.from;
    main.ToBearText.text = row.to;
    main.Srchtext.text = row.name;
    MakeList_Click(w);
    std::istringstream lines((*platform.files)["List"]);
    std::string header, listed;
    bool isHeader = true;
    int number = 0;
    for (std::string line; std::getline(lines, line); ++number) {
      if (line.starts_with("   Sitename"))
        isHeader = false;
      else if (number > 4 && line != "\r")
        (isHeader ? header += line[1] : listed += line[0]);
    }
    EXPECT_EQ(listed + " " + header, row.listed + std::string(" ") + row.header)
        << row.minimum << " to " << row.maximum << ", " << row.from << " to " << row.to;
  }
}

}  // namespace
