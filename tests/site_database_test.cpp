#include "sites/site_database.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <set>

#include "geo/grid_decoder.h"
#include "geo/locator.h"
#include "platform/headless/headless.h"
#include "sites/listing.h"
#include "workspace/classify_input.h"

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

// One character after the other.
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
    const std::string line = text(30);
    const std::string sought = text(5);
    const bool plain = UpperOf(line).find(UpperOf(sought)) != std::string::npos;
    ASSERT_EQ(Matches(line, CaseBlindText(sought)), plain) << line << " / " << sought;
  }
}

TEST_F(Database, WhatCannotBeReadIsReportedAsMissing) {
  // The last opens and fails when it is read.
  for (const char* path : {"", "c:\\none.dat", "/tmp", "/dev/zero", "/proc/self/mem"}) {
    platform.events.clear();
    w.Tarnwick.LocDatabase.text = path;
    EXPECT_FALSE(OpenDatabase(w)) << path;
    EXPECT_EQ(platform.events, std::vector<std::string>{"MsgBox Site datbase not found"}) << path;
  }
}

// The sample that is delivered: every site is a place in Great Britain, no name comes twice.
TEST_F(Database, TheSampleIsWellFormed) {
  w.Tarnwick.LocDatabase.text = TARNWICK_SAMPLE;
  ASSERT_TRUE(OpenDatabase(w));
  std::set<std::string> names;
  std::string_view line;
  while (ReadLine(w.database, line) && !HoldsEndMarker(line)) {
    const SiteLine site = SplitSiteLine(line);
    const std::string text(line);
    ASSERT_TRUE(site.isRecord && line.find('\n') == std::string_view::npos) << text;
    EXPECT_TRUE(names.insert(UpperOf(site.name)).second) << text;
    std::string position(site.position);
    std::int16_t kind = 0;
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

TEST_F(Database, AViewerThatDoesNotStartIsReported) {
  Write("Here~TQ3080");
  w.Tarnwick.ListFileName.text = folder + "/List.txt";
  platform.startsPrograms = false;
  MakeList_Click(w);
  EXPECT_EQ(platform.events.back(), "MsgBox Path or filename error");
}

}  // namespace
