// Every file of tests/journeys: what a user does, and what changes by it.
//
// Actions, as journey_driver.h tells them, begin in the first column; "home", with a folder of the
// journey's own in which it also runs, comes by itself. The lines under a `show`, two blanks in,
// are all that it prints, in any order; "..." among them allows for more. A fraction of the
// record counts to the places written, six at least.
//   file PATH TEXT         what a file below the folder holds before the journey
//   expect-file PATH TEXT  what it holds after it
// Under either stand further lines of the file, each ended by CR LF; | behind a line keeps the
// blanks at its end. @HOME@ stands for the folder and @TODAY@ for the date as yyyy/mm/dd.
//
// With TARNWICK_JOURNEY set, the journeys go through the driver that this command starts, one built
// for another system for instance.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <locale>
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
      blocks.back().under.push_back(line.substr(2));
    else if (!line.empty())
      blocks.push_back({line, lineNumber, {}});
  }
  return blocks;
}

// The path and the content that a line such as "file PATH TEXT" and the lines under it tell.
std::pair<std::string, std::string> FileOf(const Block& block) {
  std::istringstream words(block.line);
  std::string verb, path, content;
  words >> verb >> path;
  words.ignore();
  std::getline(words, content);
  content = Unescaped(content);
  for (std::string line : block.under) {
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

// Compares what one show printed, up to its point, with the lines under it.
void ExpectShown(const Block& show, std::istream& shown) {
  std::vector<std::string> missing = show.under;
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

// What the driver prints for these actions, in the present folder.
std::string Drive(const std::string& actions) {
  const char* command = std::getenv("TARNWICK_JOURNEY");
  std::ostringstream shown;
  if (command == nullptr) {
    std::istringstream in(actions);
    std::ostringstream complaints;
    EXPECT_TRUE(RunJourney(in, shown, complaints)) << complaints.str();
    return shown.str();
  }
  const std::string beside = fs::current_path().string();
  std::ofstream(beside + ".actions") << actions;
  const std::string line = command + (" <" + beside) + ".actions >" + beside + ".shown";
  EXPECT_EQ(std::system(line.c_str()), 0) << line;
  shown << std::ifstream(beside + ".shown").rdbuf();
  fs::remove(beside + ".actions");
  fs::remove(beside + ".shown");
  return shown.str();
}

void Make(const fs::path& journey) {
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
    std::ostringstream held;
    held << std::ifstream(path, std::ios::binary).rdbuf();
    EXPECT_EQ(held.str(), content) << path;
  }
  fs::current_path(testing::TempDir());
  fs::remove_all(home);
}

class Journey : public testing::TestWithParam<fs::directory_entry> {};

TEST_P(Journey, ShowsWhatItTells) {
  Make(GetParam().path());
}

// Where a comma stands in numbers, blanks part the thousands, and i has a capital of its own.
class Language : public testing::TestWithParam<const char*> {};

TEST_P(Language, ChangesNoJourney) {
  const std::string name = std::string(GetParam()) + ".UTF-8";
  const std::string folder = testing::TempDir() + "tarnwick_locales";
  fs::create_directories(folder);
  setenv("LOCPATH", folder.c_str(), 1);
  const std::string make = "localedef -i " + std::string(GetParam()) + " -f UTF-8 " + folder + "/" +
                           name + " >/dev/null 2>&1";
  // Made before the first look: a locale that setlocale has once not found stays missing. The file
  // named is the one that localedef writes last.
  const bool isMade =
      fs::exists(folder + "/" + name + "/LC_IDENTIFICATION") || std::system(make.c_str()) == 0;
  if (!isMade || setlocale(LC_ALL, name.c_str()) == nullptr)
    GTEST_SKIP() << name << " can't be made here";
  const std::locale before = std::locale::global(std::locale(name));
  EXPECT_EQ(std::to_string(1.5), "1,500000") << "the locale is in force";
  for (const auto& file : fs::directory_iterator(TARNWICK_JOURNEYS)) {
    SCOPED_TRACE(file.path());
    Make(file.path());
  }
  std::locale::global(before);
  setlocale(LC_ALL, "C");
}

INSTANTIATE_TEST_SUITE_P(Of, Language, testing::Values("de_DE", "ru_RU", "tr_TR"),
                         [](const auto& name) { return name.param; });
INSTANTIATE_TEST_SUITE_P(Of, Journey,
                         testing::ValuesIn(fs::directory_iterator(TARNWICK_JOURNEYS),
                                           fs::directory_iterator()),
                         [](const auto& file) { return file.param.path().stem().string(); });

}  // namespace
