// The settings store, and with it the home station: names, damaged files, crashes, two copies.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <random>

#include "platform/desktop/desktop_platform.h"
#include "workspace/events/start_and_exit.h"
#include "workspace/record/workspace.h"

namespace {

// From the start of the program to its end, without windows.
struct Session {
  explicit Session(const QTemporaryDir& home) {
    desktop.serial.deviceFolder = home.path();
    Form_Load(w);
  }
  void EndWithHome(double lat, double lon) {
    w.BaseLat = lat;
    w.BaseLong = lon;
    w.Tarnwick.SaveOnExit.checked = true;
    Form_Unload(w);
    desktop.FlushSettings();
  }
  bool HasHome(double lat, double lon) const {
    return w.BaseSet == kTrue && w.BaseLat == lat && w.BaseLong == lon;
  }
  Desktop desktop;
  Workspace w{desktop};
};

class Settings : public testing::Test {
 protected:
  Settings() {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home_.path());
    qputenv("XDG_DATA_HOME", home_.path().toUtf8());
    QDir(home_.path()).mkdir("Tarnwick");
  }
  void Write(const QByteArray& content) const {
    QFile::remove(file_);
    QFile file(file_);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
  }
  QByteArray Content() const {
    QFile file(file_);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  // The number that the file contains for a key of the home station.
  int Stored(const QByteArray& key) const {
    const QByteArray content = Content();
    const qsizetype at = content.indexOf("\n" + key + "=");
    return at < 0 ? -1 : content.mid(at + key.size() + 2).split('\n')[0].trimmed().toInt();
  }

  QTemporaryDir home_;
  const QString file_ = home_.filePath("Tarnwick/Tarnwick.ini");
};

TEST_F(Settings, NamesCompareWithoutCase) {
  {
    Session session(home_);
    session.w.SetUpCom.CPort.text = "COM12";  // stored and read under sections that differ in case
    session.EndWithHome(51.5, -1.25);
  }
  EXPECT_EQ(Session(home_).w.SetUpCom.CPort.text, "COM12");
  Session(home_).EndWithHome(51.5, -1.25);
  EXPECT_EQ(Content().toUpper().count("COM12"), 1);
  Write(Content().toUpper());
  EXPECT_TRUE(Session(home_).HasHome(51.5, -1.25));
}

// The readable settings count, and the next home station is kept.
TEST_F(Settings, ADamagedStoreHeals) {
  Session(home_).EndWithHome(51.5, -1.25);
  const QByteArray good = Content();
  std::vector<QByteArray> contents = {"\n[Home\nLat=50\nLong=0\n",
                                      "[Home]\nLat=50\nLat\n=\n[]\n",
                                      "Lat=50\nLong=0\n",
                                      "[Home]\nLat=\\x\\xFFFFFFFFFF\nLong=@Q(",
                                      QByteArray(100'000, '['),
                                      QByteArray(100'000, '\0'),
                                      "\xFF\xFE[\0H\0o\0m\0e\0",
                                      good + good,
                                      good.toUpper()};
  for (qsizetype length = 0; length < good.size(); ++length) contents.push_back(good.left(length));
  std::mt19937 random(1);
  for (int round = 0; round < 100; ++round) {
    contents.push_back(good);
    for (int i = 0; i <= round % 9; ++i)
      contents.back()[random() % good.size()] = static_cast<char>(random());
  }
  for (const QByteArray& content : contents) {
    Write(content);
    {
      Session session(home_);
      EXPECT_TRUE(session.w.Tarnwick.visible);
      session.EndWithHome(52.5, 1.5);
    }
    EXPECT_TRUE(Session(home_).HasHome(52.5, 1.5)) << content.left(300).toStdString();
  }
}

TEST_F(Settings, NumbersAreStoredAlikeInEveryLanguage) {
  const QLocale before;
  for (const char* name : {"de_DE", "ru_RU", "tr_TR"}) {
    QLocale::setDefault(QLocale(name));
    Session(home_).EndWithHome(51.5, -1.25);
    EXPECT_TRUE(Content().contains("51.5") && Content().contains("-1.25")) << name;
    EXPECT_TRUE(Session(home_).HasHome(51.5, -1.25)) << name;
  }
  QLocale::setDefault(before);
}

TEST_F(Settings, AFolderInPlaceOfTheStoreGivesTheDefaults) {
  QDir(file_).mkpath("within");
  Session session(home_);
  EXPECT_NE(session.w.BaseSet, kTrue);
  EXPECT_EQ(session.w.Tarnwick.LocDatabase.text, kDefaultDatabase);
  session.EndWithHome(51.5, -1.25);
  EXPECT_TRUE(QDir(file_).exists("within"));
}

TEST_F(Settings, AStoreThatMayNotBeWrittenKeepsWhatItHad) {
  Session(home_).EndWithHome(51.5, -1.25);
  const QByteArray good = Content();
  const QString folder = home_.filePath("Tarnwick");
  const auto readable = QFileDevice::Permissions(0x4444);
  const auto passable = QFileDevice::Permissions(0x5555);
  QFile::setPermissions(file_, readable);
  for (const QString& path : {folder, home_.path()}) QFile::setPermissions(path, passable);
  const bool root = geteuid() == 0;
  EXPECT_EQ(root ? seteuid(65'534) : 0, 0);
  {
    Session session(home_);
    EXPECT_TRUE(session.HasHome(51.5, -1.25));
    session.EndWithHome(52.5, 1.5);
  }
  EXPECT_EQ(root ? seteuid(0) : 0, 0);
  for (const QString& path : {home_.path(), folder})
    QFile::setPermissions(path, passable | QFile::WriteOwner);
  EXPECT_EQ(Content(), good);
}

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

TEST_F(Settings, AProgramKilledAsItStoresLeavesTheOldOrTheNewHomeStation) {
  constexpr int kMany = 100'000;
  const int kills = qEnvironmentVariableIsSet("TARNWICK_DEEP") ? 500 : 50;
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
    ASSERT_TRUE(lat == Stored("Long") && lat == Stored("Killed")) << Content().toStdString();
    ASSERT_EQ(lat / kMany, round);
    QFile::remove(file_ + ".lock");
  }
  for (const int end : ends) close(end);
}

// A copy that was killed as it took its lock leaves an empty one.
TEST_F(Settings, ALeftOverLockHoldsNobodyUp) {
  QFile lock(file_ + ".lock");
  ASSERT_TRUE(
      lock.open(QIODevice::WriteOnly) &&
      lock.setFileTime(QDateTime::currentDateTime().addSecs(-3), QFile::FileModificationTime));
  lock.close();
  QElapsedTimer timer;
  timer.start();
  Session(home_).EndWithHome(51.5, -1.25);
  EXPECT_LT(timer.elapsed(), 5'000);
  EXPECT_TRUE(Content().contains("51.5"));
}

TEST_F(Settings, TwoCopiesAtOnceKeepWhatTheOtherStored) {
  const pid_t one = fork();
  if (one == 0) StoreHomes(1, 200, "One", STDERR_FILENO);
  const pid_t two = fork();
  if (two == 0) StoreHomes(1, 200, "Two", STDERR_FILENO);
  for (const pid_t copy : {one, two}) {
    int status = -1;
    EXPECT_TRUE(waitpid(copy, &status, 0) == copy && status == 0);
  }
  for (const char* key : {"Lat", "Long", "One", "Two"}) EXPECT_EQ(Stored(key), 200) << key;
}

}  // namespace
