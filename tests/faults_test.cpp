// Failing calls of the system, real paths that cannot be used, and the memory of a long run.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#ifndef _WIN32
#include <sys/resource.h>
#endif

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "gps/nmea_receiver.h"
#include "gps/port_setup.h"
#include "platform/headless/headless.h"
#include "sites/listing/listing.h"
#include "sites/lookup/lookup.h"
#include "workspace/commands/use_this.h"
#include "workspace/events/start_and_exit.h"

namespace {

namespace fs = std::filesystem;

using Command = void (*)(Workspace&);

const std::string kList = "c:\\List.txt";
const std::string kNoDatabase = "MsgBox Site datbase not found";
const std::string kNoListing = "MsgBox Path or filename error";

std::string Sites(int count) {
  std::string sites;
  for (int i = 0; i < count; ++i) sites += "Site " + std::to_string(i) + "~TQ3080~remarks\r\n";
  return sites;
}

// So many sites that the database takes several reads and its listing several writes.
const std::string kSites = Sites(20'000);

// A started program whose files are in memory. Call number `failAt` of the start fails, none if it
// is 0.
struct Program {
  explicit Program(int failAt = 0) {
    platform.files = MemoryFiles{{kDefaultDatabase, kSites}};
    platform.serial.ports = {9};
    for (const auto& [section, key, text] : {HeadlessPlatform::Setting{"Home", "Lat", "51.5"},
                                             {"Home", "Long", "-1.25"},
                                             {"CPort", "CP", "COM9"},
                                             {"CPort", "Baud", "4800"},
                                             {"FormPLace", "Left", "300"},
                                             {"FormPLace", "Top", "300"},
                                             {"LocDB", "DB", kDefaultDatabase}})
      platform.StoreSetting(section, key, text);
    platform.faults = {.failAt = failAt};
    Form_Load(w);
    w.Tarnwick.ListFileName.text = kList;
  }
  // Runs a command on the last site; its call number `failAt` fails. Returns what the user sees.
  std::string Run(Command command, int failAt) {
    platform.events.assign(1, "");
    w.ShowList = {};
    w.Tarnwick.InputText.text = "Site 19999";
    platform.faults = {.failAt = failAt};
    command(w);
    return platform.events.back() + "|" + w.Tarnwick.InputText.text + "|" +
           std::to_string(w.ShowList.PR.items.size()) + "|" + (*platform.files)[kList];
  }

  HeadlessPlatform platform;
  Workspace w{platform};
};

TEST(Faults, AnyCallOfACommandFails) {
  const struct {
    Command command;
    int fewestCalls;
    int onDatabase;  // the first calls open and read the database; the later ones write the listing
  } rows[] = {{FindIt_Click, 3, 99}, {Lookup_Click, 4, 99}, {MakeList_Click, 10, 2}};
  for (const auto& [command, fewestCalls, onDatabase] : rows) {
    Program faultless;
    const std::string good = faultless.Run(command, 0);
    const int calls = faultless.platform.faults.calls;
    EXPECT_GE(calls, fewestCalls);
    for (int n = 1; n <= calls; ++n) {
      Program program;
      program.Run(command, n);
      EXPECT_EQ(program.platform.events.back(), n <= onDatabase ? kNoDatabase : kNoListing) << n;
      EXPECT_LE(program.platform.events.size(), 3U) << n << ": says it once";
      EXPECT_TRUE(program.platform.files->at(kDefaultDatabase) == kSites) << n;
      EXPECT_EQ(program.w.database.file, nullptr) << n;
      EXPECT_TRUE(program.Run(command, 0) == good) << n << ": works again";
    }
  }
}

// One call fails in a run from start to exit, which opens the port and the database. The program
// still starts, closes both and stores all other settings.
TEST(Faults, AnyCallOfARunFails) {
  int calls = 0;
  for (int n = 0; n <= calls; ++n) {
    Program program(n);
    Workspace& w = program.w;
    EXPECT_TRUE(w.Tarnwick.visible) << n;
    SetUpCom::Command1_Click(w);
    w.Tarnwick.InputText.text = "Site 7";
    FindIt_Click(w);
    const bool failsAtExit = n > calls - 7;
    EXPECT_TRUE((program.platform.serial.open && w.database.file) || !(n == 0 || failsAtExit)) << n;
    w.Tarnwick.SaveOnExit.checked = true;
    w.BaseLat = w.BaseLong = 7;
    w.Tarnwick.left = w.Tarnwick.top = 7;
    w.SetUpCom.CPort.text = w.SetUpCom.Baud.text = w.Tarnwick.LocDatabase.text = " 7";
    Form_Unload(w);
    if (n == 0) calls = program.platform.faults.calls;
    EXPECT_FALSE(program.platform.serial.open) << n;
    EXPECT_EQ(w.database.file, nullptr) << n;
    int unchanged = 0;
    for (const auto& [name, setting] : program.platform.settings)
      if (setting.text != " 7") ++unchanged;
    EXPECT_EQ(unchanged, n > 0 && failsAtExit ? 1 : 0) << n;
  }
  EXPECT_EQ(calls, 39 + 3 + 7) << "ports and settings, three in between, and settings";
}

#ifndef _WIN32  // pipes and devices

// A test with a folder for drives.
class RealPaths : public testing::Test {
 protected:
  RealPaths() {
    EXPECT_NE(mkdtemp(folder.data()), nullptr);
    platform.driveC = folder + "/drive_c";
    fs::create_directory(platform.driveC);
  }
  ~RealPaths() override { fs::remove_all(folder); }
  void Write(const std::string& path, const std::string& content) {
    fs::create_directories(fs::path(folder + path).parent_path());
    std::ofstream(folder + path, std::ios::binary) << content;
  }

  std::string folder = testing::TempDir() + "tarnwickXXXXXX";
  HeadlessPlatform platform;
};

// Files, devices and pipes. If an open blocks, SIGALRM ends the test.
TEST_F(RealPaths, ThatCannotBeUsed) {
  ASSERT_EQ(mkfifo((platform.driveC / "pipe").c_str(), 0600), 0);
  Workspace w{platform};
  const auto said = [&](Command command) {
    platform.events.clear();
    command(w);
    return platform.events.empty() ? "" : platform.events.back();
  };
  alarm(60);
  w.Tarnwick.InputText.text = "Site 7";
  // The last path can be opened, but reading it fails.
  for (const char* database : {"", "c:\\pipe", "c:\\", "c:\\none\\Sites.dat", "/proc/self/mem"}) {
    w.Tarnwick.LocDatabase.text = database;
    for (const Command command : {FindIt_Click, Lookup_Click, MakeList_Click})
      EXPECT_EQ(said(command), kNoDatabase) << database;
  }
  Write("/drive_c/Sites.dat", Sites(9));
  fs::create_hard_link(platform.driveC / "Sites.dat", platform.driveC / "Other.dat");
  w.Tarnwick.LocDatabase.text = "c:\\sites.DAT";
  for (const char* list :
       {"c:\\pipe", "c:\\", "c:\\none\\List.txt", "/dev/full", "c:\\Sites.dat", "c:\\OTHER.dat"}) {
    w.Tarnwick.ListFileName.text = list;
    EXPECT_EQ(said(MakeList_Click), kNoListing) << list;
  }
  alarm(0);
  EXPECT_EQ(fs::file_size(platform.driveC / "Sites.dat"), Sites(9).size());
  w.Tarnwick.ListFileName.text = kList;
  EXPECT_EQ(said(MakeList_Click), "Shell Notepad.exe " + kList);
}

TEST_F(RealPaths, IgnoreCaseBelowADrive) {
  for (const char* name : {"/drive_c/Geog/a.TXT", "/drive_c/Geog/A.txt", "/drive_d/x/é.txt"})
    Write(name, name);
  const std::pair<std::string, std::string> rows[] = {
      // a path and the content that is read
      {"c:\\GEOG\\a.TXT", "/drive_c/Geog/a.TXT"},
      {"C:/geog//A.txt", "/drive_c/Geog/A.txt"},
      {"D:\\X\\\xC9.TXT", "/drive_d/x/é.txt"},
      {"c:\\Geog\\b.txt", ""},
      {folder + "/drive_c/Geog/A.txt", "/drive_c/Geog/A.txt"},
      {"1:\\Geog\\a.TXT", ""},
      {"c:\\" + std::string(5000, '\\') + "geog\\a.TXT", ""}};
  for (const auto& [path, expected] : rows) {
    std::string content(50, ' ');
    const std::unique_ptr<File> file = platform.OpenToRead(path);
    content.resize(file ? file->Read(content.data(), 50).value_or(0) : 0);
    EXPECT_EQ(content, expected) << path;
  }
  EXPECT_TRUE(platform.ContainsFile("c:\\geog", ".tXt"));
  EXPECT_FALSE(platform.ContainsFile("c:\\geog", "xt."));
  EXPECT_FALSE(platform.ContainsFile("c:\\", "geog"));  // a folder
}

// clang defines no macro for its sanitizer.
#ifdef __has_feature
#define TARNWICK_CLANG_SANITIZES __has_feature(address_sanitizer)
#else
#define TARNWICK_CLANG_SANITIZES 0
#endif

// Eight hours of positions, one a second, 10,000 lookups and 1,000 listings, on real files.
TEST_F(RealPaths, ALongRunTakesNoMoreThanAShortOne) {
#if defined(__SANITIZE_ADDRESS__) || TARNWICK_CLANG_SANITIZES
  GTEST_SKIP() << "the sanitizer keeps what is freed";
#endif
  if (std::getenv("TARNWICK_DEEP") == nullptr) GTEST_SKIP() << "runs with ./test.sh --deep";
  Write("/drive_c/geog/Sites.dat", Sites(100));
  platform.serial.ports = {1};
  Workspace w(platform);
  platform.serial.onComm = [&w] { SetUpCom::MSComm1_OnComm(w); };
  Form_Load(w);
  w.SetUpCom.CPort.text = "COM1";
  SetUpCom::Command1_Click(w);
  w.Tarnwick.ListFileName.text = kList;
  // Returns the most memory used so far, KB, and the next free file handle.
  const auto run = [&](int hours) {
    for (int second = 0; second < hours * 3'600; ++second) {
      const std::string degrees = std::to_string(10 + second % 80);
      Feed(platform.serial, "$GPRMC,123519,A," + degrees + "30.123,N,001" + degrees +
                                ".456,W,000.0,000.0,231126,,*00\r\n");
      if (second % 3 == 0) Lookup_Click(w);
      CloseResults(w);
      if (second % 29 == 0) MakeList_Click(w);
    }
    platform.events.clear();
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    const int handle = open("/dev/null", O_RDONLY);
    close(handle);
    return std::pair(used.ru_maxrss, handle);
  };
  const auto before = run(1);
  const auto after = run(8);
  EXPECT_EQ(w.Tarnwick.LocText.text.size(), 10U) << "the positions arrived";
  EXPECT_LE(after.first, before.first + 256);
  EXPECT_EQ(after.second, before.second);
}

#endif  // _WIN32

}  // namespace
