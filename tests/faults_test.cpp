// Failing calls of the system, and the memory of a long run, which must not exceed that of a short
// one.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "gps/nmea_receiver.h"
#include "gps/port_setup.h"
#include "platform/headless/headless.h"
#include "pointing/external_maps.h"
#include "sites/listing/listing.h"
#include "sites/lookup/lookup.h"
#include "sites/lookup/results.h"
#include "workspace/commands/use_this.h"
#include "workspace/events/start_and_exit.h"

// clang defines no macro for its sanitizer.
#ifdef __has_feature
#define TARNWICK_CLANG_SANITIZES __has_feature(address_sanitizer)
#else
#define TARNWICK_CLANG_SANITIZES 0
#endif

namespace {

namespace fs = std::filesystem;

using Command = void (*)(Workspace&);

const std::string kList = "c:\\List.txt";
const std::string kNoDatabase = "MsgBox Site datbase not found";
const std::string kNoListing = "MsgBox Path or filename error";

// So many sites that the database takes several reads and its listing several writes. The searches
// are for the last site.
constexpr int kSites = 20'000;
const std::string kSought = "Site " + std::to_string(kSites - 1);

std::string Sites(int count) {
  std::string sites;
  for (int i = 0; i < count; ++i) sites += "Site " + std::to_string(i) + "~TQ3080~remarks\r\n";
  return sites;
}

// A program whose files are in memory.
struct Program {
  Program() {
    static const std::string kDatabase = Sites(kSites);
    platform.files = MemoryFiles{{kDefaultDatabase, kDatabase}};
    platform.serial.ports = {9};
    for (const auto& [section, key, text] : {HeadlessPlatform::Setting{"Home", "Lat", "51.5"},
                                             {"Home", "Long", "-1.25"},
                                             {"CPort", "CP", "COM9"},
                                             {"CPort", "Baud", "4800"},
                                             {"FormPLace", "Left", "300"},
                                             {"FormPLace", "Top", "300"},
                                             {"LocDB", "DB", kDefaultDatabase}})
      platform.StoreSetting(section, key, text);
  }
  void Start() {
    Form_Load(w);
    w.Tarnwick.ListFileName.text = kList;
  }
  // Runs a command; its call number `failAt` fails, none if it is 0. Returns what the user sees.
  std::string Run(Command command, int failAt) {
    platform.events.clear();
    w.ShowList = {};
    w.Tarnwick.InputText.text = kSought;
    platform.faults = {.failAt = failAt};
    command(w);
    return LastEvent() + "|" + w.Tarnwick.InputText.text + "|" +
           std::to_string(w.ShowList.PR.items.size()) + "|" +
           std::to_string(std::hash<std::string>()(Content(kList))) + "|" +
           std::to_string(platform.serial.open);
  }
  std::string LastEvent() const { return platform.events.empty() ? "" : platform.events.back(); }
  std::string Content(const std::string& path) const {
    const auto file = platform.files->find(path);
    return file == platform.files->end() ? "" : file->second;
  }

  HeadlessPlatform platform;
  Workspace w{platform};
};

// The message that the user sees after a failed call.
std::string MessageFor(Command command, const Program& program) {
  const std::string& call = program.platform.faults.failed;
  const bool opensPort = command == SetUpCom::Command1_Click;
  if (opensPort || command == Gmap_Click) return opensPort ? "" : program.LastEvent();
  const bool readsBeforeListing =
      call == "OpenToRead" || (call == "Read" && program.platform.files->count(kList) == 0);
  return readsBeforeListing ? kNoDatabase : kNoListing;
}

TEST(Faults, AnyCallOfACommandFails) {
  const struct {
    Command command;
    int fewestCalls;
  } rows[] = {{FindIt_Click, 3},
              {Lookup_Click, 4},
              {MakeList_Click, 10},
              {SetUpCom::Command1_Click, 1},
              {Gmap_Click, 1}};
  for (const auto& row : rows) {
    Program sound;
    sound.Start();
    const std::string good = sound.Run(row.command, 0);
    const int calls = sound.platform.faults.calls;
    EXPECT_GE(calls, row.fewestCalls);
    for (int n = 1; n <= calls; ++n) {
      Program program;
      program.Start();
      program.Run(row.command, n);
      const std::string reason = std::to_string(&row - rows) + " " +
                                 program.platform.faults.failed + " " + std::to_string(n);
      EXPECT_EQ(program.LastEvent(), MessageFor(row.command, program)) << reason;
      EXPECT_LE(program.platform.events.size(), 2U) << reason << ": says it once";
      const bool opensPort = row.command == SetUpCom::Command1_Click;
      EXPECT_EQ(program.w.SetUpCom.Text1.text, opensPort ? "COM PORT FAIL" : "") << reason;
      EXPECT_TRUE(program.Content(kDefaultDatabase) == Sites(kSites)) << reason;
      EXPECT_EQ(program.w.database.file, nullptr) << reason;
      EXPECT_EQ(program.Run(row.command, 0), good) << reason << ": works again";
    }
  }
}

TEST(Faults, AnyCallOfTheStartFails) {
  Program sound;
  sound.Start();
  const std::string found = sound.Run(FindIt_Click, 0);
  int calls = 39;
  for (int n = 1; n <= calls; ++n) {
    Program program;
    const auto stored = program.platform.settings.size();
    program.platform.faults = {.failAt = n};
    program.Start();
    calls = program.platform.faults.calls;
    EXPECT_TRUE(program.w.Tarnwick.visible) << n;
    EXPECT_FALSE(program.platform.serial.open) << n;
    EXPECT_EQ(program.LastEvent(), "") << n;
    EXPECT_EQ(program.platform.settings.size(), stored) << n;
    EXPECT_EQ(program.Run(FindIt_Click, 0), found) << n;
  }
  EXPECT_EQ(calls, 32 + 7) << "ports and settings";
}

// The exit closes port and database, and stores all other settings.
TEST(Faults, AnyCallOfTheExitFails) {
  int calls = 1;
  for (int n = 0; n <= calls; ++n) {
    Program program;
    program.Start();
    SetUpCom::Command1_Click(program.w);
    program.Run(FindIt_Click, 0);
    ASSERT_TRUE(program.platform.serial.open && program.w.database.file) << n;
    program.w.Tarnwick.SaveOnExit.checked = true;
    program.w.BaseLat = program.w.BaseLong = 7;
    program.w.Tarnwick.left = program.w.Tarnwick.top = 7;
    program.w.SetUpCom.CPort.text = program.w.SetUpCom.Baud.text = " 7";
    program.w.Tarnwick.LocDatabase.text = " 7";
    program.platform.faults = {.failAt = n};
    Form_Unload(program.w);
    calls = program.platform.faults.calls;
    EXPECT_FALSE(program.platform.serial.open) << n;
    EXPECT_EQ(program.w.database.file, nullptr) << n;
    int unchanged = 0;
    for (const auto& [name, setting] : program.platform.settings)
      if (setting.text != " 7") ++unchanged;
    EXPECT_EQ(unchanged, n == 0 ? 0 : 1) << n;
  }
  EXPECT_EQ(calls, 7) << "settings";
}

// Real files, devices and pipes. If an open blocks, SIGALRM ends the test.
TEST(Faults, RealPathsThatCannotBeUsed) {
  std::string folder = testing::TempDir() + "tarnwickXXXXXX";
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  ASSERT_EQ(mkfifo((folder + "/pipe").c_str(), 0600), 0);
  HeadlessPlatform platform;
  platform.driveC = folder;
  Workspace w{platform};
  const auto said = [&](Command command) {
    platform.events.clear();
    command(w);
    return platform.events.empty() ? "" : platform.events.back();
  };
  alarm(60);
  w.Tarnwick.InputText.text = "Site 7";
  for (const char* database : {"c:\\pipe", "c:\\", "c:\\none\\Sites.dat", "/proc/self/mem"}) {
    w.Tarnwick.LocDatabase.text = database;
    for (const Command command : {FindIt_Click, Lookup_Click, MakeList_Click})
      EXPECT_EQ(said(command), kNoDatabase) << database;
  }
  std::ofstream(folder + "/Sites.dat", std::ios::binary) << Sites(9);
  fs::create_hard_link(folder + "/Sites.dat", folder + "/Other.dat");
  w.Tarnwick.LocDatabase.text = "c:\\sites.DAT";
  for (const char* list :
       {"c:\\pipe", "c:\\", "c:\\none\\List.txt", "/dev/full", "c:\\Sites.dat", "c:\\OTHER.dat"}) {
    w.Tarnwick.ListFileName.text = list;
    EXPECT_EQ(said(MakeList_Click), kNoListing) << list;
  }
  alarm(0);
  EXPECT_EQ(fs::file_size(folder + "/Sites.dat"), Sites(9).size());
  w.Tarnwick.ListFileName.text = kList;
  EXPECT_EQ(said(MakeList_Click), "Shell Notepad.exe " + kList);
  fs::remove_all(folder);
}

// ---- long runs

struct Resources {
  long memory;  // KB
  std::ptrdiff_t openFiles;
};

Resources ResourcesInUse() {
  std::ifstream status("/proc/self/status");
  long memory = 0;
  for (std::string word; status >> word;)
    if (word == "VmRSS:") status >> memory;
  const auto handles = fs::directory_iterator("/proc/self/fd");
  return {memory, std::distance(fs::begin(handles), fs::end(handles))};
}

// Eight hours of positions, one a second, 10,000 lookups and 1,000 listings, on real files.
TEST(Faults, ALongRunTakesNoMoreThanAShortOne) {
#if defined(__SANITIZE_ADDRESS__) || TARNWICK_CLANG_SANITIZES
  GTEST_SKIP() << "the sanitizer keeps what is freed";
#endif
  if (std::getenv("TARNWICK_DEEP") == nullptr) GTEST_SKIP() << "runs with ./test.sh --deep";
  std::string folder = testing::TempDir() + "tarnwickXXXXXX";
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  Program program;
  program.platform.files.reset();
  program.platform.driveC = folder;
  fs::create_directory(folder + "/geog");
  std::ofstream(folder + "/geog/Sites.dat", std::ios::binary) << Sites(100);
  program.Start();
  Workspace& w = program.w;
  program.platform.serial.onComm = [&w] { SetUpCom::MSComm1_OnComm(w); };
  SetUpCom::Command1_Click(w);
  const auto run = [&](int hours) {
    for (int second = 0; second < hours * 3'600; ++second) {
      char sentence[80];
      std::snprintf(sentence, sizeof sentence,
                    "$GPRMC,%06d,A,%02d30.%03d,N,00%d15.%03d,W,000.0,000.0,231126,,*00\r\n",
                    second % 240'000, 49 + second % 12, second % 1'000, second % 8, second % 997);
      Feed(program.platform.serial, sentence);
      ASSERT_EQ(w.Tarnwick.LocText.text.size(), 10U) << sentence;
    }
    w.Tarnwick.InputText.text = "Site";
    for (int i = 0; i < hours * 1'250; ++i) {
      Lookup_Click(w);
      ASSERT_EQ(w.ShowList.PR.items.size(), 100U);
      CloseResults(w);
    }
    for (int i = 0; i < hours * 125; ++i) MakeList_Click(w);
    program.platform.events.clear();
  };
  run(1);
  const Resources before = ResourcesInUse();
  run(8);
  const Resources after = ResourcesInUse();
  std::cout << "memory " << before.memory << " KB, then " << after.memory << "; open files "
            << before.openFiles << ", then " << after.openFiles << '\n';
  EXPECT_LE(after.memory, before.memory + 256);
  EXPECT_EQ(after.openFiles, before.openFiles);
  fs::remove_all(folder);
}

}  // namespace
