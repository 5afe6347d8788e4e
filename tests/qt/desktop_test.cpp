// The desktop below the windows: paths, viewers, signals.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QMessageBox>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include "platform/desktop/termination.h"
#include "platform/qt/application.h"

namespace {

// A home folder of the test's own, and a stand-in for xdg-open.
class DesktopTest : public testing::Test {
 protected:
  DesktopTest() {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home_.path());
    qputenv("XDG_DATA_HOME", home_.filePath("data").toUtf8());
    qputenv("XDG_DATA_DIRS", home_.filePath("one").toUtf8() + ":" + home_.filePath("two").toUtf8());
    qputenv("PATH", home_.path().toUtf8());
  }
  ~DesktopTest() override {
    qputenv("PATH", path_);
    qputenv("XDG_DATA_DIRS", dataDirs_);
  }
  void Write(const QString& name, const QByteArray& content) const {
    QDir(home_.path()).mkpath(QFileInfo(name).path());
    QFile file(home_.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
  }
  QByteArray Content(const QString& name) const {
    QFile file(home_.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
  }
  // A viewer that writes down its arguments, each in brackets, and ends with an exit code.
  void InstallViewer(int exitCode) const {
    Write("xdg-open", "#!/bin/sh\nprintf '[%s]' \"$@\" >" + home_.filePath("arguments").toUtf8() +
                          "\nexit " + QByteArray::number(exitCode) + "\n");
    QFile::setPermissions(home_.filePath("xdg-open"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
  std::string In(const QString& name) const { return home_.filePath(name).toStdString(); }
  // QEMU 7.2 refuses the call by which Qt starts programs (clone with CLONE_PIDFD).
  static bool StartsNoPrograms() {
    return qEnvironmentVariableIsSet("TARNWICK_EMULATED") && QProcess::execute("/bin/true") != 0;
  }

  QTemporaryDir home_;
  const QByteArray path_ = qgetenv("PATH");
  const QByteArray dataDirs_ = qgetenv("XDG_DATA_DIRS");
};

// The user's files come before the installed ones, which are read only.
TEST_F(DesktopTest, ReadsInstalledFilesAndWritesTheUsers) {
  Desktop desktop;
  const std::string sites = kDefaultDatabase;
  const QString users = "data/tarnwick/drive_c/geog/";
  EXPECT_TRUE(QFileInfo(home_.filePath(users)).isDir()) << "made at the start";
  EXPECT_EQ(desktop.PathToRead(sites), In(users + "Sites.dat")) << "missing everywhere";
  EXPECT_EQ(desktop.OpenToRead(sites), nullptr);
  Write("two/tarnwick/drive_c/geog/sites.DAT", "installed");
  EXPECT_EQ(desktop.PathToRead(sites), In("two/tarnwick/drive_c/geog/sites.DAT"));
  EXPECT_TRUE(desktop.ContainsFile("c:\\GEOG\\", ".dat"));
  EXPECT_TRUE(desktop.IsSameFile("C:/geog/SITES.dat", sites)) << "no listing replaces it";
  EXPECT_EQ(desktop.PlacesOf(sites).front(), In(users + "Sites.dat"));
  auto file = desktop.OpenToWrite(sites);
  ASSERT_TRUE(file && file->Write("mine") && file->Close());
  EXPECT_EQ(desktop.PathToRead(sites), In(users + "Sites.dat"));
  EXPECT_EQ(Content("two/tarnwick/drive_c/geog/sites.DAT"), "installed");
}

TEST_F(DesktopTest, AcceptsPathsAsTheyArePasted) {
  const std::string home = QDir::homePath().toStdString();
  const struct {
    std::string pasted, path;
  } rows[] = {{"c:\\geog\\Sites.dat", "c:\\geog\\Sites.dat"},
              {" \t/a b/c \r\n", "/a b/c"},
              {"\"/a b/c.dat\"", "/a b/c.dat"},
              {"'c:\\a b.dat' ", "c:\\a b.dat"},
              {"~/Sites.dat", home + "/Sites.dat"},
              {"file:///a%20b/c.dat", "/a b/c.dat"},
              {"/a'b\"", "/a'b\""},
              {"\"", "\""},
              {"~other/x", "~other/x"},
              {"", ""}};
  for (const auto& row : rows) EXPECT_EQ(CleanPath(row.pasted), row.path) << row.pasted;
}

TEST_F(DesktopTest, StartsTheViewerWithOneArgument) {
  if (StartsNoPrograms()) GTEST_SKIP() << "the emulator starts no programs";
  Desktop desktop;
  const auto argumentOf = [&](const std::string& command) {
    QFile::remove(home_.filePath("arguments"));
    InstallViewer(0);
    EXPECT_TRUE(desktop.Shell(command, WindowStyle::Normal));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Content("arguments").endsWith(']'); })) << command;
    return Content("arguments").toStdString();
  };
  const std::string drive = In("data/tarnwick/drive_c");
  EXPECT_EQ(argumentOf("Notepad.exe c:\\My list; a.txt"), "[" + drive + "/My list; a.txt]");
  EXPECT_EQ(argumentOf("cmd /c  start c:\\OS_Maps\\NN17.JPG"), "[" + drive + "/OS_Maps/NN17.JPG]");
  EXPECT_EQ(argumentOf("cmd /c  start https://a/@1,2,14z"), "[https://a/@1,2,14z]");
  EXPECT_EQ(argumentOf("Notepad.exe --help").front(), '[');
  EXPECT_NE(argumentOf("Notepad.exe --help"), "[--help]") << "no option";
}

// Once for each listing, and never for a map.
TEST_F(DesktopTest, ReportsAViewerThatFails) {
  if (StartsNoPrograms()) GTEST_SKIP() << "the emulator starts no programs";
  Desktop desktop;
  int failures = 0;
  bool busy = true;
  desktop.onViewerFailure = [&] {
    ++failures;
    return !busy;
  };
  EXPECT_FALSE(desktop.Shell("Notepad.exe a", WindowStyle::Normal)) << "there is no viewer";
  InstallViewer(3);
  EXPECT_TRUE(desktop.Shell("cmd /c  start a", WindowStyle::MinimisedWithFocus));
  QTest::qWait(300);
  EXPECT_EQ(failures, 0);
  EXPECT_TRUE(desktop.Shell("Notepad.exe a", WindowStyle::Normal));
  EXPECT_TRUE(QTest::qWaitFor([&] { return failures == 1; }));
  busy = false;
  EXPECT_TRUE(QTest::qWaitFor([&] { return failures == 2; })) << "it could not be taken";
  QTest::qWait(300);
  EXPECT_EQ(failures, 2);

  Application program;
  EXPECT_TRUE(program.desktop.Shell("Notepad.exe a", WindowStyle::Normal));
  QString message;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    message = box->text();
    box->close();
  });
  watch.start(20);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !message.isEmpty(); }));
  EXPECT_EQ(message, "Path or filename error");
}

int ends = 0;

TEST_F(DesktopTest, EndsInOrderOnASignal) {
  OnTermination([] { ++ends; });
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const pid_t child = fork();  // hangs: its event loop never runs
    if (child == 0) {
      raise(signal);
      raise(signal);
      _exit(7);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    if (signal == SIGINT)
      EXPECT_TRUE(WIFSIGNALED(status)) << "the second Ctrl+C ends a hanging program";
    else
      EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 7) << signal;
  }
  for (int i = 0; i < 70'000; ++i) raise(SIGTERM);  // until the pipe to the event loop is full
  errno = EDOM;
  raise(SIGTERM);
  EXPECT_EQ(errno, EDOM);
  EXPECT_TRUE(QTest::qWaitFor([] { return ends == 1; }));
}

}  // namespace
