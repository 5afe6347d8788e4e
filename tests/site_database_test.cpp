// Reading and searching the site database, compared with a simple search line by line.
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "platform/code_page.h"
#include "platform/headless/headless.h"
#include "random_text.h"
#include "sites/database/line_reader.h"
#include "sites/database/site_line.h"
#include "sites/database/text_search.h"
#include "sites/lookup/lookup.h"
#include "workspace/commands/classify_input.h"
#include "workspace/commands/use_this.h"
#include "workspace/values/strings.h"

namespace {

class Database : public testing::Test {
 protected:
  void Write(const std::string& content) {
    platform.files = {{kDefaultDatabase, content}};
    w.Tarnwick.LocDatabase.text = kDefaultDatabase;
  }

  HeadlessPlatform platform;
  Workspace w{platform};
};

bool PlainlyMatches(const std::string& line, const std::string& sought) {
  return UpperOf(line).find(UpperOf(sought)) != std::string::npos;
}

// Splits a text into lines, character by character.
std::vector<std::string> PlainLinesOf(const std::string& content) {
  std::vector<std::string> lines(1);
  for (std::size_t i = 0; i < content.size(); ++i) {
    if (content[i] != '\r') {
      lines.back() += content[i];
      continue;
    }
    if (i + 1 < content.size() && content[i + 1] == '\n') ++i;
    lines.emplace_back();
  }
  if (lines.back().empty()) lines.pop_back();
  std::erase_if(lines, [](const auto& line) { return line.size() > 32766; });
  return lines;
}

// The result of Use This when it tests one line after the other: the text of the input box, and
// sitename.
std::pair<std::string, std::string> PlainUse(const std::vector<std::string>& lines,
                                             const std::string& sought) {
  std::string name;
  for (const std::string& line : lines) {
    const SiteLine site = SplitSiteLine(line);
    if (line.find("ENDENDEND") != std::string::npos) return {"Not Found", name};
    if (!site.isRecord) break;
    name = site.name;
    if (PlainlyMatches(std::string(line), sought))
      return {name + "   " + UpperOf(site.position), name};
  }
  return {sought, name};
}

// Lines of every length and with every line end. One file in 16 has lines about as long as the
// longest allowed and as the blocks in which the file is read.
std::string ContentFrom(std::mt19937& random, bool hasLongLines) {
  static const std::string kPieces[] = {"\r\n",
                                        "\r",
                                        "\n",
                                        "\r\r",
                                        "\n\r",
                                        {'\0'},
                                        "~",
                                        "~",
                                        "~",
                                        "x",
                                        "hill ",
                                        "HIlL",
                                        "\xE9",
                                        "\xC9T",
                                        "Den",
                                        "eND",
                                        "Long Mynd~SO4194~by the car park"};
  constexpr std::size_t kLengths[] = {0,     1,     13,    57,    63,     64,     65,    300,
                                      32700, 32764, 32765, 32766, 229377, 262142, 262144};
  std::string content(random() % 2, '\n');
  for (auto count = random() % 200; count > 0; --count) {
    content.append(kLengths[random() % (hasLongLines ? std::size(kLengths) : 8)], 'a');
    if (random() % 50 != 0) content.append("~q~").append(random() % 30, 'N');
    for (auto some = random() % 4; some > 0; --some)
      content += kPieces[random() % 20 == 0 ? random() % 6 : 6 + random() % 11];
    if (random() % 400 == 0) content += "ENDENDEND";
    content += random() % 20 == 0 ? "\r" : "\r\n";
  }
  return random() % 2 == 0 ? content : content + "last~TQ3080";
}

TEST_F(Database, ReadsAndFindsWhatAPlainSearchDoes) {
  std::mt19937 random(1);
  for (int round = 0; round < 64; ++round) {
    const std::string content = ContentFrom(random, round % 16 == 0);
    Write(content);
    const std::vector<std::string> lines = PlainLinesOf(content);
    ASSERT_TRUE(OpenDatabase(w));
    std::vector<std::string> read;
    for (std::string_view line; ReadLine(w.database, line);) read.emplace_back(line);
    ASSERT_TRUE(read == lines) << round;
    for (const std::string sought :
         {"hill", "x", "\xE9t", "\xFF", "den", "mynd~so", "no such site", "e"}) {
      w.Tarnwick.InputText.text = sought;
      w.ShowList.PR.items = {};
      Lookup_Click(w);
      std::deque<ListEntry> listed;
      for (const std::string& line : lines)
        if (PlainlyMatches(std::string(line), sought)) listed.emplace_back(line.substr(0, 28));
      ASSERT_EQ(w.ShowList.PR.items, listed) << round << ", " << sought;
      w.sitename.clear();
      FindIt_Click(w);
      ASSERT_EQ(std::pair(w.Tarnwick.InputText.text, w.sitename), PlainUse(lines, sought))
          << round << ", " << sought;
    }
  }
}

TEST_F(Database, MatchesAsAPlainSearchDoes) {
  constexpr std::string_view kCharacters = "aAbB\xE9\xC9~ ";
  std::mt19937 random(1);
  for (int round = 0; round < 50000; ++round) {
    const std::string padded =
        SomeOf(random, kCharacters, random() % 31) + std::string(kBlockPadding, 'a');
    const std::string_view line(padded.data(), padded.size() - kBlockPadding);
    const std::string sought = SomeOf(random, kCharacters, random() % 6);
    ASSERT_EQ(Matches(line, CaseBlindText(sought)), PlainlyMatches(std::string(line), sought))
        << line << " / " << sought;
  }
}

TEST_F(Database, FindsTheEndMarkerAnywhereInALine) {
  for (std::size_t before = 0; before < 20; ++before) {
    for (std::size_t behind = 0; behind < 3; ++behind) {
      const std::string start(before, '~');
      const std::string end(behind, 'E');
      EXPECT_TRUE(HasEndMarker(start + "ENDENDEND" + end)) << before << " " << behind;
      EXPECT_FALSE(HasEndMarker(start + "ENDENDEN" + end)) << before << " " << behind;
    }
  }
}

TEST_F(Database, ASecondLookupAddsToThousandsOfEntries) {
  std::string content;
  for (int i = 0; i < 1500; ++i) content += std::to_string(i) + "\r\n";
  Write(content);
  Lookup_Click(w);
  Lookup_Click(w);
  const auto& entries = w.ShowList.PR.items;
  ASSERT_EQ(entries.size(), 3000U);
  for (std::size_t i = 0; i < entries.size(); ++i)
    EXPECT_EQ(std::string_view(entries[i]), std::to_string(i % 1500));
}

// The sample database that is installed: every site is in Great Britain, and no name occurs twice.
TEST_F(Database, TheSampleIsWellFormed) {
  w.Tarnwick.LocDatabase.text = TARNWICK_SAMPLE;
  ASSERT_TRUE(OpenDatabase(w));
  std::set<std::string> names;
  std::string_view line;
  while (ReadLine(w.database, line) && !HasEndMarker(line)) {
    const SiteLine site = SplitSiteLine(line);
    const std::string text(line);
    ASSERT_TRUE(site.isRecord && line.find('\n') == std::string_view::npos) << text;
    EXPECT_TRUE(names.insert(UpperOf(site.name)).second) << text;
    std::string position(site.position);
    InputKind kind = kSiteName;
    ClassifyInput(position, kind);
    ASSERT_TRUE(kind == kGridReference || kind == kLocator) << text;
    if (kind == kGridReference) DecodeNGR(w, position, w.Lat, w.Lon);
    if (kind == kLocator) DecodeLocator(w, position, w.Lat, w.Lon);
    EXPECT_TRUE(w.Lat > 49.8 && w.Lat < 61 && w.Lon > -8.7 && w.Lon < 1.8) << text;
  }
  EXPECT_EQ(line, "ENDENDEND");
  EXPECT_FALSE(ReadLine(w.database, line));
  EXPECT_GE(names.size(), 100U);
}

// Use This takes the first line that contains the text anywhere; a line with the end marker ends
// the search, even if it contains the text. Before each row the screen shows IO91WM44.
TEST_F(Database, FindsASite) {
  platform.files = {{"Sites",
                     "Alpha Hill~IO91VL\r\nBeacon Rock~SU12 3456~Hilltop mast\r\n"
                     "Second Beacon~io91 wm44\r\nOld Mast~51.5 -1.2\r\nLost Place~\r\n"
                     "Odd One~IO91WM4\r\n\xC9"
                     "cole d'\xC9t\xE9~IO91WM\r\n~TQ3080\r\n"
                     "ENDENDEND\r\nBehind~SU9999\r\n"},
                    {"NoMarker", "One~IO91WM\rTwo~SU1234\r\nThree\nFour~TQ3080\r\nFive~JO01AA"},
                    {"Blank", "One~IO91WM\r\n\r\nTwo~SU1234\r\n"}};
  const auto use = [this](const char* text) {
    w.Tarnwick.InputText.text = FromUtf8(text);
    FindIt_Click(w);
  };
  const std::string notFound = "Not Found |  |  |  |  | 0 | ";
  const std::string unchanged = " | IO91WM44 | TQ299 816 | 51.518836N , 0.128997W | ";
  const struct {
    const char *database, *typed;
    std::string shown;
  } rows[] = {
      // clang-format off
      {"Sites", "hilltop m", "Beacon Rock   SU12 3456 | IO91CF00XG | SU123456 | 51.209476N , 1.825303W | Beacon Rock | 1 | "},
      {"Sites", "Beacon Rock   SU12 3456", notFound},  // as the box shows it, without the ~
      {"Sites", "WM44", "Second Beacon   IO91 WM44 | IO91WM44 | TQ299 816 | 51.518836N , 0.128997W | Second Beacon | 1 | "},
      // Letters above ASCII are found in upper and lower case, and shown as they are in the file.
      {"Sites", "éCOLE D", "École d'Été   IO91WM | IO91WM | TQ30 82 | 51.518836N , 0.128997W | École d'Été | 1 | "},
      {"Sites", "ende", notFound}, {"Sites", "behind", notFound},
      {"Sites", "tq3 ", notFound},  // blanks in the typed text count
      // A name may be empty, and the ~ is part of the line.
      {"Sites", "~tq", "   TQ3080 | IO91WM40OW | TQ3080 | 51.503991N , 0.128354W |  | 1 | "},
      {"Sites", "lost", "Lost Place    | ERROR | ERROR |  | Lost Place | 1 | "},
      // A latitude and longitude is not decoded here.
      {"Sites", "old", "Old Mast   51.5 -1.2" + unchanged + "Old Mast | 1 | "},
      {"Sites", "odd one", "Locator error | IO91WM4 | TQ299 816 | 51.518836N , 0.128997W | Odd One | 1 | "},
      // Without the end marker a text that is not found changes nothing on the screen.
      {"NoMarker", "nowhere", "nowhere" + unchanged + "Five | 0 | "},
      // A line ends with a carriage return, with or without a line feed, but not with a line feed
      // alone. The last line needs no end.
      {"NoMarker", "three\nfo", "Three\nFour   TQ3080 | IO91WM40OW | TQ3080 | 51.503991N , 0.128354W | Three\nFour | 1 | "},
      {"NoMarker", "five", "Five   JO01AA | JO01AA | TQ43 26 | 51.018836N , 0.037670E | Five | 1 | "},
      {"Blank", "two", "two" + unchanged + "One | 0 | "},  // a line that is no record ends the search
      {"None", "two", "two" + unchanged + " | 0 | MsgBox Site datbase not found"},
      // clang-format on
  };
  for (const auto& [database, typed, shown] : rows) {
    MainWindow& main = w.Tarnwick;
    platform.events.assign(1, "");
    use("IO91WM44");
    main.LocDatabase.text = database;
    use(typed);
    EXPECT_EQ(ToUtf8(main.InputText.text + " | " + main.LocText.text + " | " + main.NGRText.text +
                     " | " + main.LLText.text + " | " + w.sitename + " | " +
                     (main.SetHome.enabled ? "1 | " : "0 | ") + platform.events.back()),
              shown)
        << typed;
  }
}

}  // namespace
