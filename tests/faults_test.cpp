// What goes wrong around the program: disks that fill up, files that may not be touched, folders
// that vanish, another program that writes the database as it is read; and runs that last long.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "gps/nmea_receiver.h"
#include "gps/port_setup.h"
#include "platform/headless/headless.h"
#include "sites/listing/listing.h"
#include "sites/lookup/lookup.h"
#include "sites/lookup/results.h"
#include "workspace/commands/use_this.h"
#include "workspace/events/start_and_exit.h"

namespace {

namespace fs = std::filesystem;

class Faults : public testing::Test {
 protected:
  Faults() {
    EXPECT_NE(mkdtemp(folder.data()), nullptr);
    fs::permissions(folder, fs::perms::all);
    platform.driveC = folder;
    WriteDatabase(8'000);
    w.Tarnwick.LocDatabase.text = "c:\\Sites.dat";
    w.Tarnwick.ListFileName.text = "c:\\List.txt";
    w.BaseLat = 51.5;
  }
  ~Faults() override { fs::remove_all(folder); }

  void WriteDatabase(int sites) {
    sites_.clear();
    for (int i = 0; i < sites; ++i) sites_ += "Site " + std::to_string(i) + "~TQ3080~remarks\r\n";
    std::ofstream(folder + "/Sites.dat", std::ios::binary) << sites_;
  }
  std::string Content(const std::string& name) const {
    std::ostringstream bytes;
    bytes << std::ifstream(folder + "/" + name, std::ios::binary).rdbuf();
    return bytes.str();
  }
  // What a command says to the user, the viewer that it starts included.
  std::string Said(void (*command)(Workspace&)) {
    platform.events.clear();
    command(w);
    return platform.events.empty() ? "" : platform.events.back();
  }
  // A listing that fails says so and leaves the database alone.
  void ExpectNoListing(const std::string& reason) {
    EXPECT_EQ(Said(MakeList_Click), "MsgBox Path or filename error") << reason;
    EXPECT_EQ(w.database.file, nullptr) << reason;
    EXPECT_TRUE(Content("Sites.dat") == sites_) << reason;
  }
  void ExpectAListing() {
    EXPECT_EQ(Said(MakeList_Click), "Shell Notepad.exe " + w.Tarnwick.ListFileName.text);
  }

  std::string folder = testing::TempDir() + "tarnwickXXXXXX";
  HeadlessPlatform platform;
  Workspace w{platform};
  std::string sites_;
};

// A limit on the size of files stops every write in turn, and the end of the last.
TEST_F(Faults, TheDiskIsFullAtAnyWriteOfAListing) {
  signal(SIGXFSZ, SIG_IGN);
  ExpectAListing();
  const std::string whole = Content("List.txt");
  ASSERT_GT(whole.size(), 1'000'000U);
  rlimit unlimited{};
  getrlimit(RLIMIT_FSIZE, &unlimited);
  for (std::size_t room = 0; room < whole.size();
       room += std::min<std::size_t>(16'384, std::max<std::size_t>(1, whole.size() - room - 1))) {
    const rlimit limit{room, unlimited.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    ExpectNoListing(std::to_string(room));
    setrlimit(RLIMIT_FSIZE, &unlimited);
  }
  ExpectAListing();
  EXPECT_TRUE(Content("List.txt") == whole);
}

TEST_F(Faults, ASmallDiskFillsUp) {
  const std::string disk = folder + "/disk";
  fs::create_directory(disk);
  if (mount("tarnwick", disk.c_str(), "tmpfs", 0, "size=1m") != 0)
    GTEST_SKIP() << "no disk can be mounted here";
  w.Tarnwick.ListFileName.text = "c:\\disk\\List.txt";
  for (std::size_t taken = 0; taken <= (std::size_t{1} << 20); taken += 65'536) {
    std::ofstream(disk + "/ballast") << std::string(taken, 'x');
    ExpectNoListing(std::to_string(taken));
    fs::remove(disk + "/List.txt");
  }
  fs::remove(disk + "/ballast");
  WriteDatabase(7'000);
  ExpectAListing();
  umount2(disk.c_str(), MNT_DETACH);
}

// As a user without rights, whoever runs the test.
TEST_F(Faults, WhatMayNotBeTouchedIsReported) {
  const bool root = geteuid() == 0;
  std::ofstream(folder + "/List.txt") << "mine";
  const auto allow = [this](const char* name, unsigned rights) {
    fs::permissions(folder + "/" + name, static_cast<fs::perms>(rights));
  };
  const auto as = [root](auto&& act) {
    EXPECT_EQ(root ? seteuid(65'534) : 0, 0);
    act();
    EXPECT_EQ(root ? seteuid(0) : 0, 0);
  };
  allow("List.txt", 0444);
  as([&] { ExpectNoListing("a file that is read only"); });
  EXPECT_EQ(Content("List.txt"), "mine");
  allow(".", 0555);
  w.Tarnwick.ListFileName.text = "c:\\New.txt";
  as([&] { ExpectNoListing("a folder that is read only"); });
  allow("Sites.dat", 0);
  w.Tarnwick.InputText.text = "Site 7";
  for (const auto command : {FindIt_Click, Lookup_Click, MakeList_Click})
    as([&] { EXPECT_EQ(Said(command), "MsgBox Site datbase not found"); });
  allow("Sites.dat", 0644);
  EXPECT_EQ(Said(FindIt_Click), "");
  EXPECT_EQ(w.Tarnwick.InputText.text, "Site 7   TQ3080");
  allow(".", 0755);
}

TEST_F(Faults, TheFolderVanishes) {
  w.Tarnwick.InputText.text = "Site 7";
  EXPECT_EQ(Said(FindIt_Click), "");
  EXPECT_NE(w.database.file, nullptr) << "stays open until the next command";
  fs::remove_all(folder);
  w.Tarnwick.InputText.text = "Site 8";
  for (const auto command : {FindIt_Click, Lookup_Click, MakeList_Click})
    EXPECT_EQ(Said(command), "MsgBox Site datbase not found");
  fs::create_directory(folder);
  WriteDatabase(9);
  EXPECT_EQ(Said(FindIt_Click), "");
  EXPECT_EQ(w.Tarnwick.InputText.text, "Site 8   TQ3080");
}

// An editor saves the database, cutting it to nothing first, while it is read.
TEST_F(Faults, TheDatabaseChangesAsItIsRead) {
  std::jthread editor([this](const std::stop_token& end) {
    for (int round = 0; !end.stop_requested(); ++round) {
      std::ofstream file(folder + "/Sites.dat", std::ios::binary);
      file << sites_.substr(0, static_cast<std::size_t>(round % 7) * 40'000);
    }
  });
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(500);
  while (std::chrono::steady_clock::now() < end) {
    w.ShowList = {};
    for (const auto command : {Lookup_Click, MakeList_Click, FindIt_Click}) command(w);
    EXPECT_LE(w.ShowList.PR.items.size(), 8'000U);
  }
}

// ---- long runs

struct Use {
  long memory;   // KB
  long handles;  // open files
};

Use UseNow() {
  std::ifstream status("/proc/self/status");
  long memory = 0;
  for (std::string word; status >> word;)
    if (word == "VmRSS:") status >> memory;
  const auto handles = fs::directory_iterator("/proc/self/fd");
  return {memory, std::distance(fs::begin(handles), fs::end(handles))};
}

// Eight hours of positions, a second each, 10,000 lookups and 1,000 listings.
TEST_F(Faults, ALongRunTakesNoMoreThanAShortOne) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer keeps what is freed";
#endif
  if (std::getenv("TARNWICK_DEEP") == nullptr) GTEST_SKIP() << "comes with ./test.sh --deep";
  WriteDatabase(100);
  platform.serial.ports = {9};
  platform.StoreSetting("LocDB", "DB", "c:\\Sites.dat");
  platform.StoreSetting("CPort", "CP", "COM9");
  platform.StoreSetting("Home", "Lat", "51.5");
  platform.StoreSetting("Home", "Long", "0");
  Form_Load(w);
  SetUpCom::Command1_Click(w);
  platform.serial.onComm = [this] { SetUpCom::MSComm1_OnComm(w); };
  const auto hours = [this](int count) {
    for (int second = 0; second < count * 3'600; ++second) {
      char sentence[80];
      std::snprintf(sentence, sizeof sentence,
                    "$GPRMC,%06d,A,%02d30.%03d,N,00%d15.%03d,W,000.0,000.0,231126,,*00\r\n",
                    second % 240'000, 49 + second % 12, second % 1'000, second % 8, second % 997);
      Feed(platform.serial, sentence);
      ASSERT_EQ(w.Tarnwick.LocText.text.size(), 10U) << sentence;
    }
    w.Tarnwick.InputText.text = "Site";
    for (int i = 0; i < count * 1'250; ++i) {
      Lookup_Click(w);
      ASSERT_EQ(w.ShowList.PR.items.size(), 100U);
      CloseResults(w);
    }
    for (int i = 0; i < count * 125; ++i) MakeList_Click(w);
    platform.events.clear();
  };
  hours(1);
  const Use before = UseNow();
  hours(8);
  const Use after = UseNow();
  std::cout << "memory " << before.memory << " KB, then " << after.memory << "; open files "
            << before.handles << ", then " << after.handles << '\n';
  EXPECT_LE(after.memory, before.memory + 256);
  EXPECT_EQ(after.handles, before.handles);
}

}  // namespace
