// The serial port on pseudo terminals, which represent devices in a folder of the test's own.
#include <sys/file.h>

#include <QComboBox>
#include <QTimer>
#include <cerrno>
#include <thread>

#include "program_test.h"
#include "receiver_on_pty.h"

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

class Serial : public ProgramTest {
 protected:
  Serial() {
    for (SerialPort* serial : {&port_, &other_}) serial->deviceFolder = home_.path();
    port_.onComm = [this] {
      if (!busy_) received_ += port_.Input();
      return !busy_;
    };
  }
  void SetUp() override {
    const int probe = posix_openpt(O_RDWR | O_NOCTTY);
    const bool works = probe >= 0 && ptsname(probe) != nullptr;
    close(probe);
    if (!works) GTEST_SKIP() << "no pseudo terminals here";
  }
  auto PlugIn(const char* device) const {
    return std::make_unique<Receiver>(home_.filePath(device));
  }
  bool Receives(const std::string& characters) {
    return Eventually([&] { return received_ == characters; });
  }
  void OpenInProgram(const char* port) {
    Click("UseNMEA");
    Find<QComboBox>("CPort")->setEditText(port);
    Click("Command1");
    EXPECT_EQ(Text("UseNMEA"), "Pause Real Time");
  }
  std::string PlaceAt(const std::string& time) {
    return "48 07.038N 011 31.000E [ " + time + " UTC ]";
  }
  bool Shows(const char* time) {
    return Eventually([&] { return Text("InputText") == PlaceAt(time); });
  }
  // Another program can open the port.
  bool IsFree(int port) {
    const bool isFree = other_.Open(port, 4800);
    other_.Close();
    return isFree;
  }

  SerialPort port_, other_;
  bool busy_ = false;  // a message box is open
  std::string received_;
};

// COM1 to COM32 keep their devices; a board's own port takes a number that has none.
TEST_F(Serial, DevicesHaveFixedNumbers) {
  const auto name = [this](int port) {
    return DeviceOf(port, home_.path()).section('/', -1).toStdString();
  };
  const std::pair<int, const char*> devices[] = {
      // clang-format off
      {-1, ""}, {0, ""}, {1, "ttyS0"}, {8, "ttyS7"}, {9, "ttyUSB0"}, {16, "ttyUSB7"},
      {17, "ttyACM0"}, {24, "ttyACM7"}, {25, "rfcomm0"}, {32, "rfcomm7"}, {33, ""}
      // clang-format on
  };
  for (const auto& [port, device] : devices) EXPECT_EQ(name(port), device) << port;
  for (const char* board : {"ttyAMA0", "serial0"}) Write(board, "");
  EXPECT_EQ(name(6) + name(7) + name(8) + name(9), "ttyS5ttyAMA0serial0ttyUSB0");
  for (const char* builtIn : {"ttyS6", "ttyS7"}) Write(builtIn, "");
  EXPECT_EQ(name(7) + name(8), "ttyS6ttyS7");
  for (const int port : {0, 33, 1, 7})  // two numbers of no port, a missing device, a file
    EXPECT_FALSE(port_.Open(port, 4800)) << port;
}

TEST_F(Serial, OpensAFreeDeviceAtAnySpeed) {
  const auto receiver = PlugIn("ttyUSB0");
  constexpr unsigned long kGetSettings = 0x802C542A;  // TCGETS2, which <termios.h> lacks
  struct {
    unsigned flags[4];
    unsigned char characters[20];
    unsigned inputSpeed, outputSpeed;
  } settings{};
  // QEMU 7.2 supports named speeds alone.
  const bool isEmulated =
      ioctl(receiver->terminal, kGetSettings, &settings) != 0 && errno == ENOSYS;
  for (const int speed : {4800, 19200, 115200, 12345}) {
    if (isEmulated && speed == 12345) continue;
    EXPECT_TRUE(port_.Open(9, speed)) << speed;
    EXPECT_FALSE(port_.Open(9, speed)) << "open";
    EXPECT_FALSE(IsFree(9));
    if (!isEmulated) {
      EXPECT_EQ(ioctl(receiver->terminal, kGetSettings, &settings), 0);
      EXPECT_EQ(settings.inputSpeed, speed);
    }
    port_.Close();
  }
  const int locked = open(receiver->link.toUtf8(), O_RDWR | O_NOCTTY);
  EXPECT_EQ(flock(locked, LOCK_EX), 0);
  EXPECT_FALSE(port_.Open(9, 4800)) << "locked";
  close(locked);
  EXPECT_TRUE(port_.Open(9, 4800));
}

// The windows respond while a device sends without a pause.
TEST_F(Serial, DeliversEveryCharacterOfAStream) {
  const auto receiver = PlugIn("ttyUSB0");
  ASSERT_TRUE(port_.Open(9, 4800));
  std::string stream;
  for (int i = 0; i < 300; ++i) stream += std::to_string(i) + "\r\n";
  stream += std::string(1'000, 'x') + std::string(127, '\r') + "y";
  for (std::size_t at = 0; at < stream.size(); at += 60) receiver->Send(stream.substr(at, 60));
  receiver->Send(std::string(200, '\n'));
  EXPECT_TRUE(Eventually([&] { return received_.size() > stream.size(); }));
  EXPECT_EQ(received_.substr(0, stream.size()), stream);

  fcntl(receiver->terminal, F_SETFL, O_NONBLOCK);
  int turns = 0;
  QTimer window;
  QObject::connect(&window, &QTimer::timeout, [&turns] { ++turns; });
  window.start(10);
  const std::string flood(4'096, '\r');
  const std::jthread sender([&](const std::stop_token& end) {
    while (!end.stop_requested()) (void)!write(receiver->terminal, flood.data(), flood.size());
  });
  EXPECT_TRUE(Eventually([&] { return turns > 5 && received_.size() > 10'000; }));
  EXPECT_TRUE(port_.IsOpen());
}

// While no event is handled, the buffer keeps the first piece; later characters are lost.
TEST_F(Serial, KeepsOnePieceWhileNoEventIsTaken) {
  const auto receiver = PlugIn("ttyUSB0");
  ASSERT_TRUE(port_.Open(9, 4800));
  busy_ = true;
  receiver->Send(SentenceAt("000001"));
  for (int i = 0; i < 30; ++i) receiver->Send(SentenceAt("000002"));
  busy_ = false;
  port_.Recheck();
  EXPECT_TRUE(Receives(PieceAt("000001")));
  receiver->Send(SentenceAt("000003"));
  EXPECT_TRUE(Receives(PieceAt("000001") + PieceAt("000003")));

  received_.clear();
  QElapsedTimer sincePause;
  sincePause.start();
  port_.PauseEvents();
  receiver->Send(SentenceAt("000004") + SentenceAt("000005"));
  port_.Recheck();
  EXPECT_TRUE(Receives("\n" + PieceAt("000004")));
  EXPECT_GE(sincePause.elapsed(), 2'800) << "a pause of three seconds";
  receiver->Send(SentenceAt("000006"));
  EXPECT_TRUE(Receives("\n" + PieceAt("000004") + PieceAt("000006")));
}

TEST_F(Serial, ClosesWhenTheDeviceHangsUpAndForgetsWhatWasUnread) {
  for (const std::size_t unread : {0U, 60U, 500U}) {
    auto receiver = PlugIn("ttyUSB0");
    ASSERT_TRUE(port_.Open(9, 4800));
    busy_ = true;
    receiver->Send(std::string(unread, 'a'));
    receiver.reset();
    busy_ = false;
    port_.Recheck();
    ASSERT_TRUE(Eventually([this] { return !port_.IsOpen(); })) << unread;
    EXPECT_FALSE(port_.Open(9, 4800));
    received_.clear();
    const auto next = PlugIn("ttyUSB0");
    next->Write(std::string(unread, 'b') + '\n');
    ASSERT_TRUE(port_.Open(9, 4800));
    next->Send(SentenceAt("123519"));
    EXPECT_TRUE(Receives(PieceAt("123519"))) << unread;
    port_.Close();
  }
}

// The whole program, from the probe to a place on screen. Under a message box and for three seconds
// after it no event is raised; then one old position follows, then fresh ones.
TEST_F(Serial, ProgramFollowsAReceiverUntilItIsPausedClosedOrUnplugged) {
  auto first = PlugIn("ttyUSB2");
  const auto second = PlugIn("rfcomm7");
  Start();
  EXPECT_EQ(program_->w.SetUpCom.CPort.items, (std::vector<std::string>{"COM11", "COM32"}));
  EXPECT_TRUE(IsFree(11) && IsFree(32)) << "after the probe";
  OpenInProgram("COM32");
  second->Send(SentenceAt("123519"));
  EXPECT_TRUE(Shows("12:35:19"));

  QElapsedTimer sinceBox;
  MessageOf([&] { Click("Lookup"); },
            [&] {
              for (const char* time : {"123520", "123521", "123522"})
                second->Send(SentenceAt(time));
              EXPECT_TRUE(Shows("12:35:19"));
              sinceBox.start();
            });
  EXPECT_TRUE(Shows("12:35:20"));
  EXPECT_GE(sinceBox.elapsed(), 2'800);
  EXPECT_LT(sinceBox.elapsed(), 30'000);
  second->Send(SentenceAt("123523"));
  EXPECT_TRUE(Shows("12:35:23"));

  Click("UseNMEA");
  EXPECT_TRUE(IsFree(32)) << "after a pause";
  OpenInProgram("COM11");
  EXPECT_FALSE(IsFree(11));
  // The caption stays when the receiver is unplugged. The next click leads to the set-up, and the
  // one after it pauses as usual.
  first.reset();
  EXPECT_TRUE(Eventually([&] { return !program_->desktop.serial.IsOpen(); }));
  EXPECT_EQ(Text("UseNMEA"), "Pause Real Time");
  Click("UseNMEA");
  EXPECT_TRUE(PortSetUp().isVisible());
  Click("UseNMEA");
  EXPECT_EQ(Text("UseNMEA"), "Resume real time");
  OpenInProgram("COM32");
  Main().close();
  EXPECT_TRUE(IsFree(32)) << "at the end";
}

}  // namespace
