// The serial port over pseudo terminals, which stand for devices in a folder of their own.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <QComboBox>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QtTest>
#include <memory>
#include <thread>

#include "platform/qt/application.h"

namespace {

const std::string kSentence =
    "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n";

// The far end of a line, plugged in under a device's name until it is destroyed.
struct Receiver {
  Receiver(const QTemporaryDir& folder, const char* device) : link(folder.filePath(device)) {
    EXPECT_TRUE(grantpt(master) == 0 && unlockpt(master) == 0 &&
                QFile::link(ptsname(master), link));
  }
  ~Receiver() {
    QFile::remove(link);
    close(master);
  }
  void Send(const std::string& characters) const {
    EXPECT_EQ(write(master, characters.data(), characters.size()),
              static_cast<ssize_t>(characters.size()));
    QTest::qWait(20);
  }

  int master = posix_openpt(O_RDWR | O_NOCTTY);
  QString link;
};

class Serial : public testing::Test {
 protected:
  void SetUp() override {
    const int probe = posix_openpt(O_RDWR | O_NOCTTY);
    if (probe < 0) GTEST_SKIP() << "no pseudo terminals here";
    close(probe);
  }
  Serial() {
    for (SerialPort* serial : {&port_, &other_}) {
      serial->deviceFolder = folder_.path();
      EXPECT_TRUE(serial->SetCommPort(9) && serial->SetSettings("4800,n,8,1"));
      serial->SetInBufferSize(128);
      serial->SetRThreshold(64);
    }
    port_.onComm = [this] {
      if (busy_) return false;
      const std::string input = port_.Input();
      EXPECT_LE(input.size(), 128U);
      received_ += input;
      return true;
    };
  }
  bool Receives(const std::string& characters) {
    return QTest::qWaitFor([&] { return received_ == characters; });
  }

  QTemporaryDir folder_;
  SerialPort port_, other_;
  bool busy_ = false;
  std::string received_;
};

TEST_F(Serial, TellsWhenTheThresholdIsReachedAndLosesNothingUntilItsEventIsTaken) {
  const Receiver receiver(folder_, "ttyUSB0");
  ASSERT_TRUE(port_.Open());
  receiver.Send(std::string(63, 'a'));
  EXPECT_EQ(received_, "");
  receiver.Send("b");
  EXPECT_TRUE(Receives(std::string(63, 'a') + 'b'));
  std::string stream;
  for (int i = 0; stream.size() < 3'200; ++i) stream += std::to_string(i) + "\r\n";
  stream.resize(3'200);
  received_.clear();
  busy_ = true;
  receiver.Send(stream);
  busy_ = false;
  port_.Remind();
  EXPECT_TRUE(Receives(stream));
}

TEST_F(Serial, ClosesWhenTheLineHangsUpAndOpensAnewWithoutWhatCameBefore) {
  for (const std::size_t unread : {0U, 60U, 500U}) {
    auto receiver = std::make_unique<Receiver>(folder_, "ttyUSB0");
    ASSERT_TRUE(port_.Open());
    busy_ = true;
    receiver->Send(std::string(unread, 'a'));
    receiver.reset();
    busy_ = false;
    port_.Remind();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !port_.IsOpen(); })) << unread;
    EXPECT_FALSE(port_.Open());
    received_.clear();
    const Receiver next(folder_, "ttyUSB0");
    next.Send(std::string(unread, 'b') + '\n');
    ASSERT_TRUE(port_.Open());
    next.Send(kSentence);
    EXPECT_TRUE(Receives(kSentence)) << unread;
    port_.Close();
  }
}

TEST_F(Serial, LeavesTheWindowsTheirTurnInSilenceAndUnderAFlood) {
  const Receiver receiver(folder_, "ttyUSB0");
  fcntl(receiver.master, F_SETFL, O_NONBLOCK);
  int turns = 0;
  QTimer window;
  QObject::connect(&window, &QTimer::timeout, [&turns] { ++turns; });
  window.start(10);
  for (const bool silent : {true, false}) {
    ASSERT_TRUE(port_.Open());
    turns = 0;
    const std::string flood(4'096, '\r');
    std::jthread sender([&](const std::stop_token& end) {
      while (!silent && !end.stop_requested())
        (void)!write(receiver.master, flood.data(), flood.size());
    });
    QTest::qWait(500);
    EXPECT_GT(turns, 5) << silent;
    EXPECT_TRUE(silent ? received_.empty() : received_.size() > 10'000) << silent;
    EXPECT_TRUE(port_.IsOpen());
    port_.Close();
    EXPECT_FALSE(port_.IsOpen());
  }
}

TEST_F(Serial, OpensADeviceThatNobodyHoldsAtAnyRealSpeed) {
  for (const int number : {-1, 0, 33})
    EXPECT_FALSE(port_.SetCommPort(static_cast<std::int16_t>(number))) << number;
  for (const char* speed : {"", "0", "-4800", "fast", "4800.5", "99999999999", "48\xB0"})
    EXPECT_FALSE(port_.SetSettings(std::string(speed) + ",n,8,1")) << speed;
  EXPECT_FALSE(port_.Open()) << "there is no device";
  const Receiver receiver(folder_, "ttyUSB0");
  for (const char* speed : {"4800", "19200", "115200", "12345"}) {
    EXPECT_TRUE(port_.SetSettings(std::string(speed) + ",n,8,1") && port_.Open()) << speed;
    EXPECT_FALSE(other_.Open()) << "it is held";
    port_.Close();
  }
  const int locked = open(receiver.link.toUtf8(), O_RDWR | O_NOCTTY);
  EXPECT_EQ(flock(locked, LOCK_EX), 0);
  EXPECT_FALSE(port_.Open());
  close(locked);
  EXPECT_TRUE(port_.Open());
}

// From the probe to a place on screen; events wait under a message box.
TEST_F(Serial, BringsPlacesOnScreen) {
  qputenv("XDG_DATA_HOME", folder_.path().toUtf8());
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder_.path());
  const Receiver second(folder_, "rfcomm7");
  auto first = std::make_unique<Receiver>(folder_, "ttyUSB2");
  Application program;
  program.desktop.serial.deviceFolder = folder_.path();
  program.Start();
  auto* ports = program.setUp.findChild<QComboBox*>("CPort");
  auto* open = program.setUp.findChild<QPushButton*>("Command1");
  auto* mode = program.mainWindow.findChild<QPushButton*>("UseNMEA");
  const auto* box = program.mainWindow.findChild<QLineEdit*>("InputText");
  const QString shown = "48 07.038N 011 31.000E [ 12:35:19 UTC ]";
  EXPECT_EQ(program.w.SetUpCom.CPort.items, (std::vector<std::string>{"COM11", "COM32"}));
  EXPECT_EQ(ports->currentText(), "1") << "the stored text, though there are ports";
  mode->click();
  ports->setEditText("COM32");
  open->click();
  EXPECT_FALSE(program.setUp.isVisible());
  EXPECT_EQ(mode->text(), "Pause Real Time");
  second.Send(kSentence);
  EXPECT_TRUE(QTest::qWaitFor([&] { return box->text() == shown; }));
  QTimer::singleShot(0, [&] {
    second.Send("$GNRMC,123520,A,3351.500,S,15112.600,E,022.4,084.4,230394,003.1,W*6A\r\n");
    EXPECT_EQ(box->text(), shown);
    QApplication::activeModalWidget()->close();
  });
  program.mainWindow.findChild<QPushButton*>("Lookup")->click();
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return box->text() == "33 51.500S 151 12.600E [ 12:35:20 UTC ]"; }));
  mode->click();
  EXPECT_TRUE(other_.SetCommPort(32) && other_.Open()) << "a pause lets go of the port";

  // A receiver that is unplugged leaves the caption; the next click is for setting up anew, the one
  // behind it pauses as ever.
  mode->click();
  ports->setEditText("COM11");
  open->click();
  first.reset();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !program.desktop.serial.IsOpen(); }));
  EXPECT_EQ(mode->text(), "Pause Real Time");
  mode->click();
  EXPECT_TRUE(program.setUp.isVisible());
  EXPECT_EQ(mode->text(), "Pause Real Time");
  mode->click();
  EXPECT_EQ(mode->text(), "Resume real time");
}

}  // namespace
