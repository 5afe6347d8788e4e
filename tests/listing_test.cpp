#include "sites/listing/listing.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "platform/headless/headless.h"
#include "sites/database/line_reader.h"
#include "sites/database/site_line.h"
#include "sites/listing/listing_row.h"
#include "workspace/commands/home_station.h"
#include "workspace/commands/use_this.h"
#include "workspace/values/number_text.h"

namespace {

// The rows by the plain engine alone.
std::string PlainRows(Workspace& w) {
  std::string rows;
  if (!OpenDatabase(w)) return rows;
  const Limits limits = LimitsOf(w.Tarnwick);
  Columns columns;
  int count = 0;
  for (std::string_view line; ReadLine(w.database, line);) {
    const SiteLine site = SplitSiteLine(line);
    if (!site.isRecord) continue;
    DecodeRecord(w, line, site, columns);
    if (!Passes(w, limits)) continue;
    rows += RowOf(w, columns) + "\r\n";
    if (++count % 10 == 0) rows += "\r\n";
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

// What a run leaves behind.
auto StateOf(const Workspace& w) {
  const MainWindow& main = w.Tarnwick;
  return std::tuple(w.sitename, w.Lat, w.Lon, w.Resolution, w.Dist.number, w.Bearing.number,
                    w.Backbearing.number, w.DistUncert.number, w.BearUncert.number,
                    main.EastNorth.text, main.OSMap.caption, main.Xdim.caption, main.Ydim.caption,
                    main.InputText.text);
}

// Records of every kind, most of them in a few squares. Places near the first home station and due
// north of it, cells at the edge of the grid and of its box, and texts that are nearly references.
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
                             "SU12 34567890"};
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
  // The last records that decide what stays behind: off the box inside a square that is half in it.
  if (random() % 2 == 0) records += "Sea~JO01" + some("VWX", 1) + some("ABC", 1) + "\r\n";
  return records;
}

// A distance of nullptr is that of the last record.
struct Restriction {
  const char *minimum, *maximum, *from, *to, *name;
};

TEST(Listing, FastRowsAreThePlainOnes) {
  const std::string folder = testing::TempDir() + "tarnwick-listing" + std::to_string(getpid());
  std::filesystem::create_directories(folder);
  const std::string database = folder + "/Sites.dat";
  const int records = std::getenv("TARNWICK_DEEP") != nullptr ? 20'000 : 4'000;
  std::mt19937 random(1);
  const char* const homes[] = {"SU70004500",     "51.5N 1.25W",   "IO91WM44MM",
                               "0 0N 0E",        "51.5S 178.75E", "94N 3E",
                               "52N 361W",       "50.06N 5.7W",   "51.518836S 179.871003E",
                               "51.18N 1.0006W", "10N 179.9W"};
  const Restriction runs[] = {
      {"0", "99999", "0", "360", ""},     {"", "20", "0", "360", ""},
      {"5", "50", "350", "10", ""},       {"100", "9999", "45", "225.5", "ill"},
      {"0", "99999", "90", "90", ""},     {"19000", "99999", "0", "180", "t"},
      {"0", "16.2", "0", "360", "To"},    {"300", "400", "180", "0", ""},
      {nullptr, "99999", "0", "360", ""}, {"0", nullptr, "0", "360", ""}};
  std::size_t rows = 0;
  for (const char* home : homes) {
    std::ofstream(database, std::ios::binary) << RecordsFrom(random, records);
    std::string last;
    for (const auto& [minimum, maximum, from, to, name] : runs) {
      HeadlessPlatform platform;
      Workspace plain(platform);
      Workspace fast(platform);
      for (Workspace* w : {&plain, &fast}) {
        MainWindow& main = w->Tarnwick;
        main.InputText.text = home;
        FindIt_Click(*w);
        SetHome_Click(*w);
        main.LocDatabase.text = database;
        main.ListFileName.text = folder + "/List.txt";
        main.MinDisttext.text = minimum != nullptr ? minimum : last;
        main.MaxDistText.text = maximum != nullptr ? maximum : last;
        main.FromBearText.text = from;
        main.ToBearText.text = to;
        main.Srchtext.text = name;
      }
      const std::string expected = PlainRows(plain);
      MakeList_Click(fast);
      ASSERT_TRUE(RowsOfFile(folder + "/List.txt") == expected)
          << home << ", " << fast.Tarnwick.MaxDistText.text;
      ASSERT_EQ(StateOf(fast), StateOf(plain)) << home << ", " << fast.Tarnwick.MaxDistText.text;
      last = NumberToText(plain.Dist.number);
      rows += expected.size() / (kRowLength + 2);
    }
  }
  EXPECT_GT(rows, 40000U);
  std::filesystem::remove_all(folder);
}

}  // namespace
