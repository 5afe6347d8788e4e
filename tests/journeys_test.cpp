// Runs every file of tests/journeys: what a user does, and what changes by it.
//
// Actions (journey_driver.h) start in the first column. Each journey runs in a folder of its own,
// which is also its "home". The indented lines under a `show` are all lines that it prints, in any
// order; "..." among them allows any others. A fraction of the record is compared to the places
// written, but to six at least.
//   file PATH TEXT         creates a file before the journey
//   expect-file PATH TEXT  compares a file after the journey
// Paths are relative to the folder. The indented lines under either are further lines of the file,
// each ended by CR LF; a | at the end of a line protects blanks before it. @HOME@ is replaced by
// the folder and @TODAY@ by the date as yyyy/mm/dd.
//
// If the environment variable TARNWICK_JOURNEY is set, the journeys run in the driver that this
// command starts, such as one built for another system.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <locale>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "escaped_text.h"
#include "journey_driver.h"
#include "platform/headless/headless.h"
#include "workspace/values/number_text.h"

namespace {

namespace fs = std::filesystem;

// A line that starts in the first column, and the indented lines under it.
struct Block {
  std::string line;
  int lineNumber = 0;
  std::vector<std::string> indented;
};

void Replace(std::string& line, const std::string& mark, const std::string& text) {
  for (auto at = line.find(mark); at != std::string::npos; at = line.find(mark, at + text.size()))
    line.replace(at, mark.size(), text);
}

std::vector<Block> ReadBlocks(const fs::path& file, const std::string& home) {
  const std::string today = FormatDate(HeadlessPlatform().Today(), "YYYY/mm/dd");
  std::vector<Block> blocks;
  std::ifstream in(file);
  int lineNumber = 0;
  for (std::string line; std::getline(in, line);) {
    ++lineNumber;
    Replace(line, "@HOME@", home);
    Replace(line, "@TODAY@", today);
    if (line.rfind("  ", 0) == 0 && !blocks.empty())
      blocks.back().indented.push_back(line.substr(2));
    else if (!line.empty())
      blocks.push_back({line, lineNumber, {}});
  }
  return blocks;
}

// The path and the content in a block that starts with "file PATH TEXT" or "expect-file PATH TEXT".
std::pair<std::string, std::string> FileOf(const Block& block) {
  std::istringstream words(block.line);
  std::string verb, path, content;
  words >> verb >> path;
  words.ignore();
  std::getline(words, content);
  content = Unescaped(content);
  for (std::string line : block.indented) {
    if (!line.empty() && line.back() == '|') line.pop_back();
    content += Unescaped(line) + "\r\n";
  }
  return {Unescaped(path), content};
}

bool SameLine(const std::string& expected, const std::string& shown) {
  const std::size_t value = expected.find(' ') + 1;
  const std::size_t point = expected.find('.', value);
  const bool isFraction = expected.rfind("Record.", 0) == 0 && point != std::string::npos;
  if (!isFraction || shown.substr(0, value) != expected.substr(0, value)) return expected == shown;
  const double places = std::max(6., static_cast<double>(expected.size() - point - 1));
  const double difference = TextToNumber(&expected[value]) - TextToNumber(&shown[value]);
  return std::fabs(difference) <= 0.51 * std::pow(10, -places);
}

// Compares what one show printed, up to the line with a point, with the expected lines.
void ExpectShown(const Block& show, std::istream& shown) {
  std::vector<std::string> missing = show.indented;
  const bool allowsMore = std::erase(missing, "...") > 0;
  std::string differences;
  for (std::string line; std::getline(shown, line) && line != ".";) {
    const auto at = std::find_if(missing.begin(), missing.end(),
                                 [&](const auto& expected) { return SameLine(expected, line); });
    if (at != missing.end())
      missing.erase(at);
    else if (!allowsMore)
      differences += "  + " + line + "\n";
  }
  for (const std::string& line : missing) differences += "  - " + line + "\n";
  EXPECT_EQ(differences, "") << "show in line " << show.lineNumber << ": + unexpected, - missing";
}

// Returns what the driver prints for these actions in the current folder.
std::string Drive(const std::string& actions) {
  const char* command = std::getenv("TARNWICK_JOURNEY");
  std::ostringstream shown;
  if (command == nullptr) {
    std::istringstream in(actions);
    std::ostringstream complaints;
    EXPECT_TRUE(RunJourney(in, shown, complaints)) << complaints.str();
    return shown.str();
  }
  const std::string prefix = fs::current_path().string();
  std::ofstream(prefix + ".actions") << actions;
  const std::string line = command + (" <" + prefix) + ".actions >" + prefix + ".shown";
  EXPECT_EQ(std::system(line.c_str()), 0) << line;
  shown << std::ifstream(prefix + ".shown").rdbuf();
  fs::remove(prefix + ".actions");
  fs::remove(prefix + ".shown");
  return shown.str();
}

void RunJourneyFile(const fs::path& journey) {
  std::string home = testing::TempDir() + "tarnwickXXXXXX";
  ASSERT_NE(mkdtemp(home.data()), nullptr);
  fs::current_path(home);
  const std::vector<Block> blocks = ReadBlocks(journey, home);
  std::ostringstream actions;
  actions << "home " << home << '\n';
  for (const Block& block : blocks) {
    if (block.line.rfind("file ", 0) == 0) {
      const auto& [path, content] = FileOf(block);
      fs::create_directories(fs::absolute(path).parent_path());
      std::ofstream(path, std::ios::binary) << content;
    } else if (block.line.rfind("expect-file ", 0) != 0) {
      actions << block.line << '\n';
    }
  }
  std::istringstream shown(Drive(actions.str()));
  for (const Block& block : blocks) {
    if (block.line == "show") ExpectShown(block, shown);
    if (block.line.rfind("expect-file ", 0) != 0) continue;
    const auto& [path, content] = FileOf(block);
    std::ostringstream actual;
    actual << std::ifstream(path, std::ios::binary).rdbuf();
    EXPECT_EQ(actual.str(), content) << path;
  }
  fs::current_path(testing::TempDir());
  fs::remove_all(home);
}

class Journey : public testing::TestWithParam<fs::directory_entry> {};

TEST_P(Journey, ChangesWhatItLists) {
  RunJourneyFile(GetParam().path());
}

// Locales with a decimal comma, with blanks between thousands, and with another capital of i.
class Locale : public testing::TestWithParam<const char*> {};

TEST_P(Locale, ChangesNoJourney) {
  const std::string name = std::string(GetParam()) + ".UTF-8";
  const std::string folder = testing::TempDir() + "tarnwick_locales";
  fs::create_directories(folder);
  setenv("LOCPATH", folder.c_str(), 1);
  const std::string compile = "localedef -i " + std::string(GetParam()) + " -f UTF-8 " + folder +
                              "/" + name + " >/dev/null 2>&1";
  // setlocale never finds a locale that it once did not find, so the locale is compiled before the
  // first call. localedef writes this file last.
  const bool isCompiled = fs::exists(folder + "/" + name + "/LC_IDENTIFICATION") ||
                          std::system(compile.c_str()) == 0;
  if (!isCompiled || setlocale(LC_ALL, name.c_str()) == nullptr)
    GTEST_SKIP() << name << " cannot be compiled here";
  const std::locale before = std::locale::global(std::locale(name));
  EXPECT_EQ(std::to_string(1.5), "1,500000") << "the locale must be active";
  for (const auto& file : fs::directory_iterator(TARNWICK_JOURNEYS)) {
    SCOPED_TRACE(file.path());
    RunJourneyFile(file.path());
  }
  std::locale::global(before);
  setlocale(LC_ALL, "C");
}

INSTANTIATE_TEST_SUITE_P(Of, Locale, testing::Values("de_DE", "ru_RU", "tr_TR"),
                         [](const auto& name) { return name.param; });
INSTANTIATE_TEST_SUITE_P(Of, Journey,
                         testing::ValuesIn(fs::directory_iterator(TARNWICK_JOURNEYS),
                                           fs::directory_iterator()),
                         [](const auto& file) { return file.param.path().stem().string(); });

}  // namespace
