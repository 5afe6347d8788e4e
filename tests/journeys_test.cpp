// Runs every file of tests/journeys, a list of user actions and of everything that they change.
//
// Actions (journey_driver.h) start in the first column. Each journey runs in a folder of its own,
// which is also its "home". The indented lines under an action are all changes by it and by the
// actions since the last such lines, in any order, separated by " | ":
//   NAME VALUE          as the driver prints it, without "Record.", ".text", ".caption" and, where
//                       the control's name is unique, without the window; fractions of the record
//                       have six places
//   back R G B: NAMES   these controls have this background now; also fore, visible and enabled
//   compass X Y         the compass was drawn with this end of the needle; "compass empty": cleared
//   nothing             no value changed
//   ...                 any other changes; only in the first such lines after a start
//   file PATH TEXT         creates a file before the journey
//   expect-file PATH TEXT  compares a file after the journey
// Paths are relative to the folder. The indented lines under the last two are further lines of the
// file, each ended by CR LF; a | at the end of a line protects blanks before it. @HOME@ is replaced
// by the folder and @TODAY@ by the date as yyyy/mm/dd.
//
// If the environment variable TARNWICK_JOURNEY is set, the journeys run in the driver that this
// command starts, such as one built for another system.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <clocale>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <locale>
#include <sstream>
#include <string>
#include <string_view>
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
  const std::string today = FormatDate(HeadlessPlatform().Today());
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

// Strips `prefix` from the front of `text`; false if it is not there.
bool StripFront(std::string& text, std::string_view prefix) {
  if (text.rfind(prefix, 0) != 0) return false;
  text.erase(0, prefix.size());
  return true;
}

// A line that the driver printed, as journeys write it.
std::string ShortForm(const std::string& line) {
  std::string name = line.substr(0, line.find(' '));
  std::string value = line.substr(name.size());
  const bool isFraction = name.rfind("Record.", 0) == 0 && value.find('.') != std::string::npos &&
                          value.find_first_not_of(" -.0123456789e") == std::string::npos;
  if (isFraction) value = " " + FormatPicture(TextToNumber(value), "0.0#####");
  if (!StripFront(name, "Tarnwick.")) StripFront(name, "Record.");
  for (const char* window : {"BearingCalc.", "ShowList.", "SetUpCom."}) {
    std::string control = name;
    if (!StripFront(control, window) || control.find('.') == std::string::npos) continue;
    const std::string label = control.substr(0, control.find('.'));
    const bool isShared =
        label == "Label1" || label == "Label2" || label == "Label4" || label == "Label5";
    if (!isShared) name = control;
  }
  for (const char* property : {".text", ".caption"})
    if (name.ends_with(property)) name.resize(name.size() - std::string_view(property).size());
  return name + value;
}

// The drawing of a compass as one item; any other drawing stays as it is.
void ShortenCompass(std::vector<std::string>& items) {
  static const std::vector<std::string> kLetters = {"Draw circle 0 0 0.9 255 0 0",
                                                    "Draw pset -0.2 -1.6 250 250 180",
                                                    "Draw print N",
                                                    "Draw pset -0.2 0.9 250 250 180",
                                                    "Draw print S",
                                                    "Draw pset -1.5 -0.35 250 250 180",
                                                    "Draw print W",
                                                    "Draw pset 1.2 -0.35 250 250 180",
                                                    "Draw print E"};
  const auto cls = std::find(items.begin(), items.end(), "Draw cls");
  if (cls == items.end()) return;
  std::vector<std::string> drawn(cls + 1, items.end());
  std::erase_if(drawn, [](const auto& item) { return item.rfind("Draw ", 0) != 0; });
  std::string compass = "compass empty";
  if (!drawn.empty()) {
    std::string needle = drawn.front();
    if (!StripFront(needle, "Draw line 0 0 ") || !needle.ends_with(" 0 0 0")) return;
    if (!std::equal(drawn.begin() + 1, drawn.end(), kLetters.begin(), kLetters.end())) return;
    compass = "compass " + needle.substr(0, needle.size() - 6);
  }
  std::erase_if(items, [](const auto& item) { return item.rfind("Draw ", 0) == 0; });
  items.push_back(compass);
}

// The items of expectation lines; "enabled 1: A B" becomes "A.enabled 1" and "B.enabled 1".
std::vector<std::string> ItemsOf(const std::vector<std::string>& lines) {
  std::vector<std::string> items;
  for (std::string line : lines) {
    line += " | ";
    for (std::size_t from = 0, to; (to = line.find(" | ", from)) < line.size(); from = to + 3) {
      const std::string item = line.substr(from, to - from);
      const std::size_t colon = item.find(": ");
      const std::string property = item.substr(0, item.find(' '));
      const bool isGroup =
          colon != std::string::npos && (property == "fore" || property == "back" ||
                                         property == "visible" || property == "enabled");
      if (!isGroup) {
        items.push_back(item);
        continue;
      }
      std::istringstream names(item.substr(colon + 2));
      for (std::string name; names >> name;) items.push_back(name + "." + item.substr(0, colon));
    }
  }
  return items;
}

// Compares what one `show` printed, up to its point, with the lines under an action.
void ExpectChanges(const Block& action, std::istream& shown, bool allowsMore) {
  std::vector<std::string> missing = ItemsOf(action.indented);
  if (std::erase(missing, "...") == 0) allowsMore = false;
  std::erase(missing, "nothing");
  std::vector<std::string> changes;
  for (std::string line; std::getline(shown, line) && line != ".";)
    changes.push_back(line.rfind("Draw ", 0) == 0 ? line : ShortForm(line));
  ShortenCompass(changes);
  std::string differences;
  for (const std::string& change : changes) {
    const auto at = std::find(missing.begin(), missing.end(), change);
    if (at != missing.end())
      missing.erase(at);
    else if (!allowsMore)
      differences += "  + " + change + "\n";
  }
  for (const std::string& item : missing) differences += "  - " + item + "\n";
  EXPECT_EQ(differences, "") << "line " << action.lineNumber << ": + unexpected, - missing";
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

bool IsFile(const Block& block, const char* verb) {
  return block.line.rfind(verb, 0) == 0;
}

void RunJourneyFile(const fs::path& journey) {
  std::string home = testing::TempDir() + "tarnwickXXXXXX";
  ASSERT_NE(mkdtemp(home.data()), nullptr);
  fs::current_path(home);
  const std::vector<Block> blocks = ReadBlocks(journey, home);
  std::ostringstream actions;
  actions << "home " << home << '\n';
  for (const Block& block : blocks) {
    if (IsFile(block, "file ")) {
      const auto& [path, content] = FileOf(block);
      fs::create_directories(fs::absolute(path).parent_path());
      std::ofstream(path, std::ios::binary) << content;
    } else if (!IsFile(block, "expect-file ")) {
      actions << block.line << (block.indented.empty() ? "\n" : "\nshow\n");
    }
  }
  std::istringstream shown(Drive(actions.str()));
  bool isFirst = false;
  for (const Block& block : blocks) {
    if (block.line == "start") isFirst = true;
    if (IsFile(block, "expect-file ")) {
      const auto& [path, content] = FileOf(block);
      std::ostringstream found;
      found << std::ifstream(path, std::ios::binary).rdbuf();
      EXPECT_EQ(found.str(), content) << path;
    } else if (!IsFile(block, "file ") && !block.indented.empty()) {
      ExpectChanges(block, shown, isFirst);
      isFirst = false;
    }
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
  const bool isCompiled =
      fs::exists(folder + "/" + name + "/LC_IDENTIFICATION") || std::system(compile.c_str()) == 0;
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
