// Every file of tests/journeys is a transcript (journey_driver.h): user actions, and under them
// everything that they change. Run again, it must come out as it is. After an intended change:
//   for j in tests/journeys/*.journey; do build/ci/journey <$j >new && mv new $j; done; git diff
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <locale>
#include <sstream>
#include <string>

#include "journey_driver.h"

namespace {

namespace fs = std::filesystem;

void ExpectSameTranscript(const fs::path& journey) {
  std::stringstream content;
  content << std::ifstream(journey, std::ios::binary).rdbuf();
  std::ostringstream shown;
  std::ostringstream complaints;
  RunJourney(content, shown, complaints);
  EXPECT_EQ(shown.str(), content.str()) << journey;
  EXPECT_EQ(complaints.str(), "") << journey;
}

class Journey : public testing::TestWithParam<fs::directory_entry> {};

TEST_P(Journey, ChangesWhatItLists) {
  ExpectSameTranscript(GetParam());
}

#ifndef _WIN32  // which has no localedef

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
  for (const auto& file : fs::directory_iterator(TARNWICK_JOURNEYS)) ExpectSameTranscript(file);
  std::locale::global(before);
  setlocale(LC_ALL, "C");
}

INSTANTIATE_TEST_SUITE_P(Of, Locale, testing::Values("de_DE", "ru_RU", "tr_TR"),
                         [](const auto& name) { return name.param; });

#endif  // _WIN32

INSTANTIATE_TEST_SUITE_P(Of, Journey,
                         testing::ValuesIn(fs::directory_iterator(TARNWICK_JOURNEYS),
                                           fs::directory_iterator()),
                         [](const auto& file) { return file.param.path().stem().string(); });

}  // namespace
