// Every file of tests/journeys: what a user does, and what changes by it.
//
// Actions, as journey_driver.h tells them, begin in the first column; "home", with a folder of the
// journey's own, comes by itself. The lines under a `show`, two blanks in, are all that it prints,
// in any order; "..." among them allows for more. Numbers of the record count to a millionth.
//   file PATH TEXT         what a file below the folder holds before the journey
//   expect-file PATH TEXT  what it holds after it
// Under either stand further lines of the file, each ended by CR LF; | behind a line keeps the
// blanks at its end. @HOME@ stands for the folder and @TODAY@ for the date as yyyy/mm/dd.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "journey_driver.h"
#include "platform/headless/headless.h"

namespace {

namespace fs = std::filesystem;

// A line of the first column with the lines that stand under it.
struct Block {
  std::string line;
  int lineNumber = 0;
  std::vector<std::string> under;
};

std::string Replaced(std::string text, std::string_view mark, const std::string& by) {
  for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; at += by.size())
    text.replace(at, mark.size(), by);
  return text;
}

std::vector<Block> ReadBlocks(const fs::path& file, const std::string& home) {
  std::vector<Block> blocks;
  std::ifstream in(file);
  int lineNumber = 0;
  for (std::string line; std::getline(in, line);) {
    ++lineNumber;
    line = Replaced(line, "@HOME@", home);
    line = Replaced(line, "@TODAY@", FormatDate(HeadlessPlatform().Today(), "YYYY/mm/dd"));
    const bool isUnder = line.rfind("  ", 0) == 0 && !blocks.empty();
    if (isUnder) blocks.back().under.push_back(line.substr(2));
    if (!isUnder && !line.empty()) blocks.push_back({line, lineNumber, {}});
  }
  return blocks;
}

// Takes the first word and the blank behind it off a line if it is this one.
bool TakeVerb(std::string_view& line, std::string_view verb) {
  if (line.substr(0, verb.size() + 1) != std::string(verb) + " ") return false;
  line.remove_prefix(verb.size() + 1);
  return true;
}

// What PATH TEXT and the lines under it say.
std::pair<fs::path, std::string> FileOf(std::string_view rest, const Block& block) {
  const std::size_t blank = std::min(rest.find(' '), rest.size());
  std::string content = Unescaped(rest.substr(std::min(blank + 1, rest.size())));
  for (std::string line : block.under) {
    if (!line.empty() && line.back() == '|') line.pop_back();
    content += Unescaped(line) + "\r\n";
  }
  return {fs::path(rest.substr(0, blank)), content};
}

bool SameLine(const std::string& expected, const std::string& shown) {
  if (expected == shown || expected.rfind("Record.", 0) != 0) return expected == shown;
  const std::size_t at = expected.find(' ') + 1;
  if (expected.substr(0, at) != shown.substr(0, at)) return false;
  char* expectedEnd = nullptr;
  char* shownEnd = nullptr;
  const double difference =
      std::strtod(&expected[at], &expectedEnd) - std::strtod(&shown[at], &shownEnd);
  return *expectedEnd == '\0' && *shownEnd == '\0' && std::fabs(difference) < 1e-6;
}

// Compares what one show printed, up to its point, with the lines under it.
void ExpectShown(const Block& show, std::istream& shown) {
  std::vector<std::string> missing = show.under;
  const bool more = std::erase(missing, "...") > 0;
  std::string differences;
  for (std::string line; std::getline(shown, line) && line != ".";) {
    const auto at = std::find_if(missing.begin(), missing.end(),
                                 [&](const auto& expected) { return SameLine(expected, line); });
    if (at != missing.end()) {
      missing.erase(at);
    } else if (!more) {
      differences += "  + " + line + "\n";
    }
  }
  for (const std::string& line : missing) differences += "  - " + line + "\n";
  EXPECT_TRUE(differences.empty())
      << "show in line " << show.lineNumber << ", + unexpected, - missing:\n"
      << differences;
}

class Journey : public testing::TestWithParam<fs::path> {};

TEST_P(Journey, ShowsWhatItTells) {
  std::string home = testing::TempDir() + "tarnwickXXXXXX";
  ASSERT_NE(mkdtemp(home.data()), nullptr);
  const std::vector<Block> blocks = ReadBlocks(GetParam(), home);
  std::stringstream actions;
  actions << "home " << home << '\n';
  std::vector<std::pair<fs::path, std::string>> expectedFiles;
  for (const Block& block : blocks) {
    std::string_view rest = block.line;
    if (TakeVerb(rest, "file")) {
      const auto& [path, content] = FileOf(rest, block);
      fs::create_directories((home / path).parent_path());
      std::ofstream(home / path, std::ios::binary) << content;
    } else if (TakeVerb(rest, "expect-file")) {
      expectedFiles.push_back(FileOf(rest, block));
    } else {
      actions << block.line << '\n';
    }
  }
  std::stringstream shown;
  std::ostringstream complaints;
  EXPECT_TRUE(RunJourney(actions, shown, complaints)) << complaints.str();
  for (const Block& block : blocks)
    if (block.line == "show") ExpectShown(block, shown);
  for (const auto& [path, content] : expectedFiles) {
    std::ostringstream held;
    held << std::ifstream(home / path, std::ios::binary).rdbuf();
    EXPECT_EQ(held.str(), content) << path;
  }
  fs::remove_all(home);
}

std::vector<fs::path> JourneyFiles() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(TARNWICK_JOURNEYS))
    if (entry.path().extension() == ".journey") files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

INSTANTIATE_TEST_SUITE_P(Of, Journey, testing::ValuesIn(JourneyFiles()),
                         [](const auto& file) { return file.param.stem().string(); });

}  // namespace
