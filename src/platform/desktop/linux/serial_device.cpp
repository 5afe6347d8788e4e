#include "platform/desktop/serial_device.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <iterator>

namespace {

// Whether a running program has locked the device with an old-style lock file, whose first line is
// its process number.
bool IsLockedByFile(const QString& device) {
  QFile lock("/var/lock/LCK.." + QFileInfo(device).fileName());
  if (!lock.open(QIODevice::ReadOnly)) return false;
  const pid_t owner = lock.readLine().trimmed().toInt();
  return owner > 0 && (kill(owner, 0) == 0 || errno == EPERM);
}

// Sets a speed for which <termios.h> has no constant. `settings` copies `struct termios2`, because
// the kernel header that declares it contradicts <termios.h>.
bool SetOtherSpeed(int port, int speed) {
  struct {
    tcflag_t input, output, control, local;
    cc_t line, characters[19];
    speed_t inputSpeed, outputSpeed;
  } settings{};
  if (ioctl(port, _IOR('T', 0x2A, settings), &settings) != 0) return false;
  settings.control = (settings.control & ~static_cast<tcflag_t>(CBAUD)) | CBAUDEX;
  settings.inputSpeed = settings.outputSpeed = static_cast<speed_t>(speed);
  return ioctl(port, _IOW('T', 0x2B, settings), &settings) == 0;
}

bool SetUp(int port, termios line, int speed) {
  line.c_iflag = IGNPAR;
  line.c_oflag = line.c_lflag = 0;
  line.c_cflag = (line.c_cflag & HUPCL) | CS8 | CREAD | CLOCAL;
  line.c_cc[VMIN] = 1;  // so that a read of no characters means that the device hung up
  line.c_cc[VTIME] = 0;
  const bool isNamed = cfsetspeed(&line, static_cast<speed_t>(speed)) == 0;
  return tcsetattr(port, TCSANOW, &line) == 0 && (isNamed || SetOtherSpeed(port, speed));
}

}  // namespace

const char* const kDeviceFolder = "/dev";

QString DeviceOf(int port, const QString& folder) {
  static constexpr const char* kFamilies[] = {"ttyS", "ttyUSB", "ttyACM", "rfcomm"};
  constexpr int kPortsPerFamily = 8;
  if (port < 1 || port > kPortsPerFamily * std::ssize(kFamilies)) return {};
  const int index = port - 1;
  QString device = QString("%1/%2%3")
                       .arg(folder, kFamilies[index / kPortsPerFamily])
                       .arg(index % kPortsPerFamily);
  const bool hasBoardName = port == 7 || port == 8;
  if (!hasBoardName || QFileInfo::exists(device)) return device;
  const QString boardDevice = folder + (port == 7 ? "/ttyAMA0" : "/serial0");
  return QFileInfo::exists(boardDevice) ? boardDevice : device;
}

struct SerialDevice::System {
  int port = -1;
  termios settingsBefore{};
  QSocketNotifier arrivals{QSocketNotifier::Read};
};

SerialDevice::SerialDevice(const std::function<void()>& onData)
    : system_(std::make_unique<System>()) {
  QObject::connect(&system_->arrivals, &QSocketNotifier::activated, onData);
}

SerialDevice::~SerialDevice() {
  Close();
}

bool SerialDevice::Open(const QString& device, int speed) {
  if (speed <= 0 || !QFileInfo::exists(device) || IsLockedByFile(device)) return false;
  const int port =
      open(device.toLocal8Bit().constData(), O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  const bool isLocked = flock(port, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  if (isLocked || tcgetattr(port, &system_->settingsBefore) != 0) {
    close(port);
    return false;
  }
  system_->port = port;
  ioctl(port, TIOCEXCL);
  if (!SetUp(port, system_->settingsBefore, speed)) {
    Close();
    return false;
  }
  Discard();
  system_->arrivals.setSocket(port);
  system_->arrivals.setEnabled(true);
  return IsOpen();
}

void SerialDevice::Close() {
  if (!IsOpen()) return;
  system_->arrivals.setEnabled(false);
  tcsetattr(system_->port, TCSANOW, &system_->settingsBefore);
  ioctl(system_->port, TIOCNXCL);
  close(system_->port);
  system_->port = -1;
}

bool SerialDevice::IsOpen() const {
  return system_->port >= 0;
}

std::string SerialDevice::Read() {
  if (!IsOpen()) return {};
  char text[128];
  const ssize_t count = read(system_->port, text, sizeof text);
  if (count > 0) return {text, static_cast<std::size_t>(count)};
  if (count == 0 || (errno != EAGAIN && errno != EINTR)) Close();  // unplugged or hung up
  return {};
}

void SerialDevice::Discard() {
  if (IsOpen() && tcflush(system_->port, TCIFLUSH) != 0) Close();
}
