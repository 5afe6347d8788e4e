// The desktop below the windows: paths, viewers, signals.
#include <arpa/inet.h>
#include <dlfcn.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QMessageBox>
#include <QProcess>

#include "platform/desktop/termination.h"
#include "program_test.h"

namespace {

class DesktopTest : public ProgramTest {
 protected:
  // A viewer that writes down its arguments, each in brackets, and whether it leads its session.
  void InstallViewer(int exitCode) const {
    Write("xdg-open",
          "#!/bin/sh\nread id name state parent group session rest </proc/$$/stat\n"
          "printf '[%s]' \"$@\" $((session - id)) >" +
              home_.filePath("arguments").toUtf8() + "\nexit " + QByteArray::number(exitCode) +
              "\n");
    QFile::setPermissions(home_.filePath("xdg-open"), QFile::ReadOwner | QFile::ExeOwner);
  }
  std::string ArgumentOf(const std::function<void()>& action) const {
    QFile::remove(home_.filePath("arguments"));
    action();
    EXPECT_TRUE(Eventually([&] { return Content("arguments").endsWith("[0]"); }));
    return Content("arguments").chopped(3).toStdString();
  }
  std::string In(const QString& name) const { return home_.filePath(name).toStdString(); }
  // QEMU 7.2 refuses the call by which Qt starts programs (clone with CLONE_PIDFD).
  static bool StartsNoPrograms() {
    return qEnvironmentVariableIsSet("TARNWICK_EMULATED") && QProcess::execute("/bin/true") != 0;
  }

  const ScopedVariable dataFolders_{"XDG_DATA_DIRS",
                                    home_.filePath("one") + ":" + home_.filePath("two")};
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
              {"\"\"", ""},
              {"~/Sites.dat", home + "/Sites.dat"},
              {"file:///a%20b/c.dat", "/a b/c.dat"},
              {"/a'b\"", "/a'b\""},
              {"\"", "\""},
              {"~other/x", "~other/x"}};
  for (const auto& row : rows) EXPECT_EQ(CleanPath(row.pasted), row.path) << row.pasted;
}

// A map, the listing and files with odd names, each as one argument of xdg-open.
TEST_F(DesktopTest, StartsTheViewerWithOneArgument) {
  if (StartsNoPrograms()) GTEST_SKIP() << "the emulator starts no programs";
  InstallViewer(0);
  const QString drive = "data/tarnwick/drive_c/";
  Write(drive + "OS_Maps/TQ38.JPG", "");
  InstallSites();
  Start();
  Use("TQ308805");
  EXPECT_EQ(ArgumentOf([&] { Click("Gmap"); }),
            "[https://www.google.com/maps/@51.5083,-.116649,14z]");
  EXPECT_EQ(ArgumentOf([&] { Click("OSMap"); }), "[" + In(drive + "OS_Maps/TQ38.JPG") + "]");
  Click("SetHome");
  EXPECT_EQ(ArgumentOf([&] { Click("LocSites"); }), "[" + In(drive + "geog/SITELIST.TXT") + "]");
  for (const auto& [name, argument] :
       {std::pair<std::string, std::string>("c:\\My list; a.txt", In(drive + "My list; a.txt")),
        {"--help", QDir::current().filePath("--help").toStdString()}})
    EXPECT_EQ(ArgumentOf([&] {
                EXPECT_TRUE(program_->desktop.Shell("Notepad.exe " + name, WindowStyle::Normal));
              }),
              "[" + argument + "]");
}

// Once for each listing, never for a map, and after a message box that was open.
TEST_F(DesktopTest, ReportsAViewerThatFails) {
  if (StartsNoPrograms()) GTEST_SKIP() << "the emulator starts no programs";
  InstallSites();
  Start();
  SetHome("TQ308805");
  const std::string failure = "Path or filename error";
  EXPECT_EQ(MessageOf([&] { Click("LocSites"); }), failure) << "there is no viewer";
  EXPECT_TRUE(QFile::exists(home_.filePath("data/tarnwick/drive_c/geog/SITELIST.TXT")));
  EXPECT_EQ(MessageOf([&] { Click("Gmap"); }), "");
  InstallViewer(3);
  const auto show = [&] { ArgumentOf([&] { Click("LocSites"); }); };
  EXPECT_EQ(MessageOf([&] {
              show();
              QTest::qWait(200);
            }),
            failure);
  program_->runner.Run([&](Workspace&) {
    EXPECT_EQ(
        MessageOf([&] {
          ArgumentOf([&] { (void)program_->desktop.Shell("Notepad.exe a", WindowStyle::Normal); });
          QTest::qWait(200);
        }),
        "")
        << "a command runs";
  });
  EXPECT_EQ(MessageOf([] { QTest::qWait(100); }), failure);
  EXPECT_EQ(MessageOf([&] {
              ArgumentOf([&] { Click("Gmap"); });
              QTest::qWait(200);
            }),
            "");
}

// SIGINT, SIGTERM and SIGHUP end the program as its close button does, a message box or not. A
// program that hangs is ended by the second Ctrl+C.
TEST_F(DesktopTest, EndsInOrderOnASignal) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    Start();
    bool ended = false;
    program_->onEnd = [&] { ended = true; };
    OnTermination([this] { program_->End(); });
    const pid_t child = fork();  // hangs: its event loop never runs
    if (child == 0) {
      OnTermination([] {});
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
    EXPECT_EQ(
        MessageOf([&] { Click("Lookup"); },
                  [&] {
                    if (signal == SIGTERM)  // until the pipe to the event loop is full
                      for (int i = 0; i < 70'000; ++i) raise(SIGTERM);
                    errno = EDOM;
                    raise(signal);
                    EXPECT_EQ(errno, EDOM);
                    EXPECT_TRUE(Eventually([&] { return !QApplication::activeModalWidget(); }));
                  }),
        "Site datbase not found");
    EXPECT_TRUE(Eventually([&] { return ended; })) << signal;
    EXPECT_FALSE(Main().isVisible());
  }
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::signal(signal, SIG_DFL);
}

// A server that would listen on every address listens on the machine itself alone.
TEST(LoopbackOnly, ReplacesAnyAddress) {
  void* library = dlopen(TARNWICK_LOOPBACK, RTLD_NOW);
  ASSERT_NE(library, nullptr) << dlerror();
  const auto bindOnly = reinterpret_cast<decltype(&bind)>(dlsym(library, "bind"));
  for (const auto& [family, address, bound] : {std::tuple(AF_INET, "0.0.0.0", "127.0.0.1"),
                                               {AF_INET, "127.0.0.2", "127.0.0.2"},
                                               {AF_INET6, "::", "::ffff:127.0.0.1"},
                                               {AF_INET6, "::1", "::1"}}) {
    union {
      sockaddr any;
      sockaddr_in v4;
      sockaddr_in6 v6;
    } name{};
    name.any.sa_family = static_cast<sa_family_t>(family);
    void* const bytes =
        family == AF_INET ? static_cast<void*>(&name.v4.sin_addr) : &name.v6.sin6_addr;
    inet_pton(family, address, bytes);
    const int server = socket(family, SOCK_STREAM, 0);
    if (server < 0) continue;  // a machine without IPv6
    const int no = 0;
    if (family == AF_INET6) setsockopt(server, IPPROTO_IPV6, IPV6_V6ONLY, &no, sizeof no);
    socklen_t length = family == AF_INET ? sizeof name.v4 : sizeof name.v6;
    EXPECT_EQ(bindOnly(server, &name.any, length), 0) << address;
    EXPECT_EQ(getsockname(server, &name.any, &length), 0);
    char text[INET6_ADDRSTRLEN] = "";
    inet_ntop(family, bytes, text, sizeof text);
    EXPECT_STREQ(text, bound);
    close(server);
  }
}

}  // namespace
