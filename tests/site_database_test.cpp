#include "sites/database/line_reader.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <set>

#include "geo/grid_reference.h"
#include "geo/locator.h"
#include "platform/headless/headless.h"
#include "sites/database/site_line.h"
#include "sites/database/text_search.h"
#include "sites/listing/listing.h"
#include "sites/lookup/lookup.h"
#include "workspace/commands/classify_input.h"
#include "workspace/commands/use_this.h"
#include "workspace/values/strings.h"

namespace {

class Database : public testing::Test {
 protected:
  ~Database() override { std::filesystem::remove_all(folder); }

  void Write(const std::string& content) {
    std::filesystem::create_directories(folder);
    w.Tarnwick.LocDatabase.text = folder + "/Sites.dat";
    std::ofstream(w.Tarnwick.LocDatabase.text, std::ios::binary) << content;
  }

  const std::string folder = testing::TempDir() + "tarnwick" + std::to_string(getpid());
  HeadlessPlatform platform;
  Workspace w{platform};
};

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

TEST_F(Database, LinesAreWhatAPlainReaderFinds) {
  std::mt19937 random(1);
  const std::string ends[] = {"\r", "\r\n", "\n", "\r\r", "\n\r", std::string(1, '\0'), "~", ""};
  const std::size_t lengths[] = {0, 1, 7, 32764, 32765, 32766, 32767, 229377, 262142, 262144};
  for (int round = 0; round < 60; ++round) {
    std::string content;
    for (auto pieces = random() % 8; pieces > 0; --pieces) {
      content.append(lengths[random() % std::size(lengths)], static_cast<char>('a' + pieces));
      content += ends[random() % std::size(ends)];
    }
    Write(content);
    ASSERT_TRUE(OpenDatabase(w));
    std::vector<std::string> lines;
    for (std::string_view line; ReadLine(w.database, line);) lines.emplace_back(line);
    ASSERT_TRUE(lines == PlainLinesOf(content)) << "round " << round;
  }
}

TEST_F(Database, MatchesAsAPlainSearchDoes) {
  std::mt19937 random(1);
  const auto text = [&](std::size_t longest) {
    std::string made;
    for (auto length = random() % (longest + 1); length > 0; --length)
      made += "aAbB\xE9\xC9~ "[random() % 8];
    return made;
  };
  for (int round = 0; round < 50000; ++round) {
    const std::string padded = text(30) + std::string(kBlockPadding, 'a');
    const std::string_view line(padded.data(), padded.size() - kBlockPadding);
    const std::string sought = text(5);
    const bool plain = UpperOf(line).find(UpperOf(sought)) != std::string::npos;
    ASSERT_EQ(Matches(line, CaseBlindText(sought)), plain) << line << " / " << sought;
  }
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
    if (UpperOf(line).find(UpperOf(sought)) != std::string::npos)
      return {name + "   " + UpperOf(site.position), name};
  }
  return {sought, name};
}

TEST_F(Database, FindsTheEndMarkerWhereverItStands) {
  for (std::size_t before = 0; before < 20; ++before) {
    for (std::size_t behind = 0; behind < 3; ++behind) {
      const std::string start(before, '~');
      const std::string end(behind, 'E');
      EXPECT_TRUE(HasEndMarker(start + "ENDENDEND" + end)) << before << " " << behind;
      EXPECT_FALSE(HasEndMarker(start + "ENDENDEN" + end)) << before << " " << behind;
    }
  }
}

TEST_F(Database, PassingOverLinesChangesNothing) {
  std::mt19937 random(1);
  const char* const pieces[] = {"\r\n",  "\r\n",      "\r",   "\n",
                                "~",     "~",         "~",    "x",
                                "hill ", "HIlL",      "\xE9", "\xC9T",
                                "Den",   "ENDENDEND", "eND",  "Long Mynd~SO4194~by the car park"};
  const std::size_t lengths[] = {0, 1, 13, 57, 63, 64, 65, 300, 32700, 32767, 230000};
  const char* const sought[] = {"hill", "x",       "\xE9t",        "\xFF",
                                "den",  "mynd~so", "no such site", "e"};
  for (int round = 0; round < 200; ++round) {
    std::string content(static_cast<std::size_t>(round % 2), '\n');
    const bool someLong = round % 8 == 0;
    for (auto count = random() % 200; count > 0; --count) {
      content.append(lengths[random() % (someLong ? std::size(lengths) : 8)], 'a');
      if (random() % 50 != 0) content.append("~q~").append(random() % 30, 'N');
      for (auto some = random() % 4; some > 0; --some)
        if (const auto piece = random() % std::size(pieces); piece != 13 || random() % 40 == 0)
          content += pieces[piece];
      content += random() % 20 == 0 ? "\r" : "\r\n";
    }
    Write(content);
    const std::vector<std::string> lines = PlainLinesOf(content);
    for (const std::string text : sought) {
      w.Tarnwick.InputText.text = text;
      w.ShowList.PR.items = {};
      Lookup_Click(w);
      ListEntries listed;
      for (const std::string& line : lines)
        if (UpperOf(line).find(UpperOf(text)) != std::string::npos) listed.Add(line.substr(0, 28));
      ASSERT_EQ(w.ShowList.PR.items, listed) << "round " << round << ", " << text;
      w.sitename.clear();
      FindIt_Click(w);
      ASSERT_EQ(std::pair(w.Tarnwick.InputText.text, w.sitename), PlainUse(lines, text))
          << "round " << round << ", " << text;
    }
  }
}

TEST_F(Database, ASecondLookupAddsToThousandsOfEntries) {
  std::string content;
  std::vector<std::string> expected;
  for (int i = 0; i < 1500; ++i) {
    expected.push_back(std::string(static_cast<std::size_t>(i % 9), 'x') + std::to_string(i));
    content += expected.back() + "\r\n";
  }
  Write(content);
  Lookup_Click(w);
  w.Tarnwick.InputText.text = "1023";
  Lookup_Click(w);
  expected.push_back(expected[1023]);
  const ListEntries& entries = w.ShowList.PR.items;
  ASSERT_EQ(entries.size(), expected.size());
  for (std::size_t i = 0; i < entries.size(); ++i) EXPECT_EQ(entries[i], expected[i]);
}

TEST_F(Database, WhatCannotBeReadIsReportedAsMissing) {
  // The last path can be opened, but reading it fails.
  for (const char* path : {"", "c:\\none.dat", "/tmp", "/dev/zero", "/proc/self/mem"}) {
    platform.events.clear();
    w.Tarnwick.LocDatabase.text = path;
    EXPECT_FALSE(OpenDatabase(w)) << path;
    EXPECT_EQ(platform.events, std::vector<std::string>{"MsgBox Site datbase not found"}) << path;
  }
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

}  // namespace
