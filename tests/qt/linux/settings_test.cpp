// The settings file: names, damage, crashes, two copies.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "program_test.h"
#include "workspace/events/start_and_exit.h"
#include "workspace/values/number_text.h"

namespace {

const char* const kFile = "Tarnwick/Tarnwick.ini";

// Stores numbers, each as a whole home station, until the process is killed or has stored the last.
// Writes a character to `signalEnd` when the first is stored.
[[noreturn]] void StoreHomes(int first, int last, const char* alsoUnder, int signalEnd) {
  Desktop store;
  for (int i = first; i <= last; ++i) {
    for (const char* key : {"Lat", "Long", alsoUnder})
      store.StoreSetting("Home", key, std::to_string(i));
    store.FlushSettings();
    if (i == first && write(signalEnd, "1", 1) != 1) _exit(1);
  }
  _exit(0);
}

class Settings : public ScratchTest {
 protected:
  // Runs the program without windows, and returns the home station and the port that it begins
  // with; ends with others.
  std::string Run(double lat = 51.5, double lon = -1.25) const {
    Desktop desktop;
    desktop.serial.deviceFolder = home_.path();
    Workspace w{desktop};
    Form_Load(w);
    const std::string begin =
        w.BaseSet == kTrue ? NumberToText(w.BaseLat) + NumberToText(w.BaseLong) : "none";
    const std::string port = w.SetUpCom.CPort.text;
    w.BaseLat = lat;
    w.BaseLong = lon;
    w.SetUpCom.CPort.text = "COM12";
    w.Tarnwick.SaveOnExit.checked = true;
    Form_Unload(w);
    desktop.FlushSettings();
    return begin + " " + port;
  }
  // Returns the number that the file contains for a key of the home station.
  int Stored(const QByteArray& key) const {
    const QByteArray content = Content(kFile);
    const qsizetype at = content.indexOf("\n" + key + "=");
    return at < 0 ? -1 : content.mid(at + key.size() + 2).split('\n')[0].trimmed().toInt();
  }
  const std::string kStored = NumberToText(51.5) + NumberToText(-1.25) + " COM12";
};

// The port is stored and read under sections that differ in case.
TEST_F(Settings, NamesCompareWithoutCase) {
  EXPECT_EQ(Run(), "none 1");
  EXPECT_EQ(Run(), kStored);
  EXPECT_EQ(Content(kFile).count("COM12"), 1);
  Write(kFile, Content(kFile).toUpper());
  EXPECT_EQ(Run(), kStored);
  Write(kFile, "[CPort]\nCP=COM1, 2\n");
  EXPECT_EQ(Run(), "none COM1, 2") << "written by a user, without quotes";
}

// The readable settings count, and the next home station is kept.
TEST_F(Settings, DamagedFileHeals) {
  Run();
  const QByteArray good = Content(kFile);
  std::vector<QByteArray> contents = {
      "[Home]\nLat=50\nLat\n=\n[]\n", "[Home]\nLat=\\x\\xFFFFFFFFFF\nLong=@Q(",
      QByteArray(100'000, '['), QByteArray(100'000, '\0'), good + good};
  for (qsizetype length = 0; length < good.size(); length += 7)
    contents.push_back(good.left(length));
  std::mt19937 random(1);
  for (int round = 0; round < 30; ++round) {
    contents.push_back(good);
    for (int i = 0; i <= round % 9; ++i)
      contents.back()[random() % good.size()] = static_cast<char>(random());
  }
  for (const QByteArray& content : contents) {
    Write(kFile, content);
    Run();
    EXPECT_EQ(Run(), kStored) << content.left(300).toStdString();
  }
  QFile::remove(home_.filePath(kFile));
  QDir(home_.filePath(kFile)).mkpath("within");
  EXPECT_EQ(Run(), "none 1");
  EXPECT_TRUE(QDir(home_.filePath(kFile)).exists("within")) << "a folder in place of the file";
}

TEST_F(Settings, FileThatMayNotBeWrittenKeepsWhatItHad) {
  Run();
  const QByteArray good = Content(kFile);
  const QStringList paths = {home_.filePath(kFile), home_.filePath("Tarnwick"), home_.path()};
  for (const QString& path : paths) QFile::setPermissions(path, QFileDevice::Permissions(0x5555));
  const bool root = geteuid() == 0;
  EXPECT_EQ(root ? seteuid(65'534) : 0, 0);
  EXPECT_EQ(Run(52.5, 1.5), kStored);
  EXPECT_EQ(root ? seteuid(0) : 0, 0);
  for (const QString& path : paths) QFile::setPermissions(path, QFileDevice::Permissions(0x7755));
  EXPECT_EQ(Content(kFile), good);
}

TEST_F(Settings, ProgramKilledAsItStoresLeavesTheOldOrTheNewHomeStation) {
  constexpr int kMany = 100'000;
  const int kills = qEnvironmentVariableIsSet("TARNWICK_DEEP") ? 500 : 20;
  std::mt19937 random(1);
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  for (int round = 1; round <= kills; ++round) {
    const pid_t child = fork();
    if (child == 0) StoreHomes(round * kMany, (round + 1) * kMany, "Killed", ends[1]);
    char told = 0;
    EXPECT_EQ(read(ends[0], &told, 1), 1);
    usleep(static_cast<useconds_t>(random() % 10'000));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const int lat = Stored("Lat");
    ASSERT_TRUE(lat == Stored("Long") && lat == Stored("Killed")) << Content(kFile).toStdString();
    ASSERT_EQ(lat / kMany, round);
    QFile::remove(home_.filePath(kFile) + ".lock");
  }
  for (const int end : ends) close(end);
}

// A copy that was killed as it took its lock leaves an empty one, for which Qt would wait half a
// minute.
TEST_F(Settings, LeftOverLockDelaysNothing) {
  Write(QString(kFile) + ".lock", "");
  QFile lock(home_.filePath(kFile) + ".lock");
  ASSERT_TRUE(
      lock.open(QIODevice::Append) &&
      lock.setFileTime(QDateTime::currentDateTime().addSecs(-3), QFile::FileModificationTime));
  lock.close();
  QElapsedTimer timer;
  timer.start();
  Run();
  EXPECT_LT(timer.elapsed(), 20'000);
  EXPECT_TRUE(Content(kFile).contains("51.5"));
}

TEST_F(Settings, TwoCopiesAtOnceKeepWhatTheOtherStored) {
  const pid_t one = fork();
  if (one == 0) StoreHomes(1, 50, "One", STDERR_FILENO);
  const pid_t two = fork();
  if (two == 0) StoreHomes(1, 50, "Two", STDERR_FILENO);
  for (const pid_t copy : {one, two}) {
    int status = -1;
    EXPECT_TRUE(waitpid(copy, &status, 0) == copy && status == 0);
  }
  for (const char* key : {"Lat", "Long", "One", "Two"}) EXPECT_EQ(Stored(key), 50) << key;
}

}  // namespace
