// The serial port on pseudo terminals, which represent devices in a folder of the test's own.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QComboBox>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QtTest>
#include <cerrno>
#include <memory>
#include <thread>

#include "platform/qt/application.h"

namespace {

// 69 characters and its line end.
std::string SentenceAt(const std::string& time) {
  return "$GPRMC," + time + ",A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n";
}

// What the port delivers of it at once: the line feed waits for the characters behind it.
std::string PieceAt(const std::string& time) {
  const std::string sentence = SentenceAt(time);
  return sentence.substr(0, sentence.size() - 1);
}

// A receiver that is plugged in under a device's name until it is destroyed.
struct Receiver {
  Receiver(const QTemporaryDir& folder, const char* device) : link(folder.filePath(device)) {
    EXPECT_TRUE(grantpt(terminal) == 0 && unlockpt(terminal) == 0 &&
                QFile::link(ptsname(terminal), link));
  }
  ~Receiver() {
    QFile::remove(link);
    close(terminal);
  }
  void Send(const std::string& characters) const {
    EXPECT_EQ(write(terminal, characters.data(), characters.size()),
              static_cast<ssize_t>(characters.size()));
    QTest::qWait(20);
  }

  int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  QString link;
};

// COM1 to COM32 keep their devices; a board's own port takes a number that has none.
TEST(SerialDevices, HaveFixedNumbers) {
  const QTemporaryDir folder;
  const auto name = [&folder](int port) {
    return DeviceOf(port, folder.path()).section('/', -1).toStdString();
  };
  const struct {
    int port;
    const char* device;
  } rows[] = {{-1, ""},        {0, ""},         {1, "ttyS0"},    {8, "ttyS7"},
              {9, "ttyUSB0"},  {16, "ttyUSB7"}, {17, "ttyACM0"}, {24, "ttyACM7"},
              {25, "rfcomm0"}, {32, "rfcomm7"}, {33, ""}};
  for (const auto& row : rows) EXPECT_EQ(name(row.port), row.device) << row.port;
  for (const char* board : {"ttyAMA0", "serial0"})
    EXPECT_TRUE(QFile(folder.filePath(board)).open(QIODevice::WriteOnly));
  EXPECT_EQ(name(6) + name(7) + name(8) + name(9), "ttyS5ttyAMA0serial0ttyUSB0");
  for (const char* builtIn : {"ttyS6", "ttyS7"})
    EXPECT_TRUE(QFile(folder.filePath(builtIn)).open(QIODevice::WriteOnly));
  EXPECT_EQ(name(7) + name(8), "ttyS6ttyS7");
}

TEST(SerialDevices, ThatAreNoneStayClosed) {
  const QTemporaryDir folder;
  SerialPort port;
  port.deviceFolder = folder.path();
  EXPECT_FALSE(port.Open(0, 4800) || port.Open(33, 4800));
  EXPECT_FALSE(port.Open(1, 4800)) << "missing";
  EXPECT_TRUE(QFile(folder.filePath("ttyS0")).open(QIODevice::WriteOnly));
  EXPECT_FALSE(port.Open(1, 4800)) << "a file";
}

class Serial : public testing::Test {
 protected:
  void SetUp() override {
    const int probe = posix_openpt(O_RDWR | O_NOCTTY);
    if (probe < 0) GTEST_SKIP() << "no pseudo terminals here";
    close(probe);
  }
  Serial() {
    for (SerialPort* serial : {&port_, &other_}) serial->deviceFolder = folder_.path();
    port_.onComm = [this] {
      if (!busy_) received_ += port_.Input();
      return !busy_;
    };
  }
  bool Receives(const std::string& characters) {
    return QTest::qWaitFor([&] { return received_ == characters; });
  }

  QTemporaryDir folder_;
  SerialPort port_, other_;
  bool busy_ = false;  // a message box is open
  std::string received_;
};

TEST_F(Serial, DeliversEveryCharacterOfAStream) {
  const Receiver receiver(folder_, "ttyUSB0");
  ASSERT_TRUE(port_.Open(9, 4800));
  std::string stream;
  for (int i = 0; i < 300; ++i) stream += std::to_string(i) + "\r\n";
  stream += std::string(1'000, 'x') + std::string(127, '\r') + "y";
  for (std::size_t at = 0; at < stream.size(); at += 60) receiver.Send(stream.substr(at, 60));
  receiver.Send(std::string(200, '\n'));
  EXPECT_TRUE(QTest::qWaitFor([&] { return received_.size() > stream.size(); }));
  EXPECT_EQ(received_.substr(0, stream.size()), stream);
}

// Of what arrives while no event is taken the first piece stays, whatever the system still queues.
TEST_F(Serial, KeepsOnePieceWhileNoEventIsTaken) {
  const Receiver receiver(folder_, "ttyUSB0");
  ASSERT_TRUE(port_.Open(9, 4800));
  busy_ = true;
  receiver.Send(SentenceAt("000001"));
  for (int i = 0; i < 30; ++i) receiver.Send(SentenceAt("000002"));
  busy_ = false;
  port_.Recheck();
  EXPECT_TRUE(Receives(PieceAt("000001")));
  receiver.Send(SentenceAt("000003"));
  EXPECT_TRUE(Receives(PieceAt("000001") + PieceAt("000003")));

  received_.clear();
  port_.PauseEvents();
  receiver.Send(SentenceAt("000004") + SentenceAt("000005"));
  port_.Recheck();
  QTest::qWait(2'000);
  EXPECT_EQ(received_, "") << "a pause of three seconds";
  EXPECT_TRUE(Receives("\n" + PieceAt("000004")));
  QTest::qWait(200);
  EXPECT_EQ(received_, "\n" + PieceAt("000004"));
}

TEST_F(Serial, ClosesWhenTheDeviceHangsUpAndForgetsWhatWasUnread) {
  for (const std::size_t unread : {0U, 60U, 500U}) {
    auto receiver = std::make_unique<Receiver>(folder_, "ttyUSB0");
    ASSERT_TRUE(port_.Open(9, 4800));
    busy_ = true;
    receiver->Send(std::string(unread, 'a'));
    receiver.reset();
    busy_ = false;
    port_.Recheck();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !port_.IsOpen(); })) << unread;
    EXPECT_FALSE(port_.Open(9, 4800));
    received_.clear();
    const Receiver next(folder_, "ttyUSB0");
    next.Send(std::string(unread, 'b') + '\n');
    ASSERT_TRUE(port_.Open(9, 4800));
    next.Send(SentenceAt("123519"));
    EXPECT_TRUE(Receives(PieceAt("123519"))) << unread;
    port_.Close();
  }
}

TEST_F(Serial, LeavesTheWindowsTimeUnderAFlood) {
  const Receiver receiver(folder_, "ttyUSB0");
  fcntl(receiver.terminal, F_SETFL, O_NONBLOCK);
  int turns = 0;
  QTimer window;
  QObject::connect(&window, &QTimer::timeout, [&turns] { ++turns; });
  window.start(10);
  ASSERT_TRUE(port_.Open(9, 4800));
  const std::string flood(4'096, '\r');
  const std::jthread sender([&](const std::stop_token& end) {
    while (!end.stop_requested()) (void)!write(receiver.terminal, flood.data(), flood.size());
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return turns > 5 && received_.size() > 10'000; }));
  EXPECT_TRUE(port_.IsOpen());
}

TEST_F(Serial, OpensAFreeDeviceAtAnySpeed) {
  const Receiver receiver(folder_, "ttyUSB0");
  for (const int speed : {4800, 19200, 115200}) {
    EXPECT_TRUE(port_.Open(9, speed)) << speed;
    EXPECT_FALSE(port_.Open(9, speed)) << "open";
    EXPECT_FALSE(other_.Open(9, 4800)) << "in use";
    port_.Close();
  }
  const int locked = open(receiver.link.toUtf8(), O_RDWR | O_NOCTTY);
  EXPECT_EQ(flock(locked, LOCK_EX), 0);
  EXPECT_FALSE(port_.Open(9, 4800)) << "locked";
  close(locked);
  EXPECT_TRUE(port_.Open(9, 4800));
}

// QEMU 7.2 does not support the system calls for speeds without a constant.
TEST_F(Serial, OpensADeviceAtASpeedWithoutAConstant) {
  const Receiver receiver(folder_, "ttyUSB0");
  constexpr unsigned long kGetSettings = 0x802C542A;  // TCGETS2, which <termios.h> lacks
  unsigned settings[11];
  if (ioctl(receiver.terminal, kGetSettings, settings) != 0 && errno == ENOSYS)
    GTEST_SKIP() << "the emulator supports named speeds alone";
  EXPECT_TRUE(port_.Open(9, 12345));
}

// The whole program, from the probe to a place on screen.
class SerialProgram : public Serial {
 protected:
  SerialProgram() {
    qputenv("XDG_DATA_HOME", folder_.path().toUtf8());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder_.path());
    program_ = std::make_unique<Application>();
    program_->desktop.serial.deviceFolder = folder_.path();
  }
  void Open(const char* port) {
    Find<QPushButton>("UseNMEA")->click();
    program_->WindowOf(WindowName::SetUpCom).findChild<QComboBox*>("CPort")->setEditText(port);
    program_->WindowOf(WindowName::SetUpCom).findChild<QPushButton*>("Command1")->click();
    EXPECT_EQ(Find<QPushButton>("UseNMEA")->text(), "Pause Real Time");
  }
  template <class Widget>
  Widget* Find(const char* name) const {
    return program_->mainWindow.findChild<Widget*>(name);
  }
  bool Shows(const char* time) const {
    return QTest::qWaitFor([&] {
      return Find<QLineEdit>("InputText")->text() ==
             QString("48 07.038N 011 31.000E [ %1 UTC ]").arg(time);
    });
  }
  // Another program can open the port.
  bool IsFree(int port) {
    const bool isFree = other_.Open(port, 4800);
    other_.Close();
    return isFree;
  }
  std::unique_ptr<Application> program_;
};

TEST_F(SerialProgram, FollowsAReceiverUntilItIsPausedOrClosed) {
  const Receiver first(folder_, "ttyUSB2");
  const Receiver second(folder_, "rfcomm7");
  program_->Start();
  EXPECT_EQ(program_->w.SetUpCom.CPort.items, (std::vector<std::string>{"COM11", "COM32"}));
  EXPECT_TRUE(IsFree(11) && IsFree(32)) << "after the probe";
  Open("COM32");
  second.Send(SentenceAt("123519"));
  EXPECT_TRUE(Shows("12:35:19"));

  // Under a message box and for three seconds after it no event is raised; then one old position
  // follows, then fresh ones.
  QTimer::singleShot(0, [&] {
    for (const char* time : {"123520", "123521", "123522"}) second.Send(SentenceAt(time));
    EXPECT_TRUE(Shows("12:35:19"));
    QApplication::activeModalWidget()->close();
  });
  Find<QPushButton>("Lookup")->click();
  QTest::qWait(1'000);
  EXPECT_TRUE(Shows("12:35:19"));
  EXPECT_TRUE(Shows("12:35:20"));
  second.Send(SentenceAt("123523"));
  EXPECT_TRUE(Shows("12:35:23"));

  Find<QPushButton>("UseNMEA")->click();
  EXPECT_TRUE(IsFree(32)) << "after a pause";
  Open("COM11");
  EXPECT_FALSE(IsFree(11));
  program_->mainWindow.close();
  EXPECT_TRUE(IsFree(11)) << "at the end";
}

// The caption stays when the receiver is unplugged. The next click leads to the set-up, and the one
// after it pauses as usual.
TEST_F(SerialProgram, GoesOnAfterAReceiverWasUnplugged) {
  auto receiver = std::make_unique<Receiver>(folder_, "ttyUSB2");
  program_->Start();
  Open("COM11");
  receiver.reset();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !program_->desktop.serial.IsOpen(); }));
  auto* mode = Find<QPushButton>("UseNMEA");
  EXPECT_EQ(mode->text(), "Pause Real Time");
  mode->click();
  EXPECT_TRUE(program_->WindowOf(WindowName::SetUpCom).isVisible());
  EXPECT_EQ(mode->text(), "Pause Real Time");
  mode->click();
  EXPECT_EQ(mode->text(), "Resume real time");
}

}  // namespace
