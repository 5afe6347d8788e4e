#include "platform/desktop/serial_device.h"

#include <sys/file.h>

#include <QFile>
#include <QFileInfo>
#include <QSerialPort>
#include <cerrno>
#include <csignal>
#include <iterator>

namespace {

// Limit of Qt's read buffer in bytes; further characters wait in the system's queue.
constexpr qint64 kReadBufferSize = 128;

// Whether a running program has locked the device with an old-style lock file, which contains its
// process number and nothing else. Qt would take such a file for a leftover and remove it.
bool IsLockedByFile(const QString& device) {
  QFile lock("/var/lock/LCK.." + QFileInfo(device).fileName());
  if (!lock.open(QIODevice::ReadOnly)) return false;
  const pid_t owner = lock.readLine().trimmed().toInt();
  return owner > 0 && lock.atEnd() && (kill(owner, 0) == 0 || errno == EPERM);
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
  QSerialPort port;
};

SerialDevice::SerialDevice(const std::function<void()>& onData)
    : system_(std::make_unique<System>()) {
  QSerialPort& port = system_->port;
  port.setReadBufferSize(kReadBufferSize);
  QObject::connect(&port, &QSerialPort::readyRead, &port, onData);
  // A device that was unplugged or hung up would report its error again and again. Other errors,
  // such as control lines that a pseudo terminal lacks, do not close the port.
  QObject::connect(&port, &QSerialPort::errorOccurred, &port,
                   [this](QSerialPort::SerialPortError error) {
                     if (error == QSerialPort::ReadError || error == QSerialPort::ResourceError)
                       Close();
                   });
}

SerialDevice::~SerialDevice() = default;

bool SerialDevice::Open(const QString& device, int speed) {
  QSerialPort& port = system_->port;
  if (!QFileInfo::exists(device) || IsLockedByFile(device)) return false;
  port.setPortName(device);
  if (!port.setBaudRate(speed) || !port.open(QIODevice::ReadOnly)) return false;
  if (flock(port.handle(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    Close();
    return false;
  }
  port.clear(QSerialPort::Input);
  return true;
}

void SerialDevice::Close() {
  if (IsOpen()) system_->port.close();
}

bool SerialDevice::IsOpen() const {
  return system_->port.isOpen();
}

std::string SerialDevice::Read() {
  return system_->port.readAll().toStdString();
}

void SerialDevice::Discard() {
  if (!IsOpen()) return;
  system_->port.readAll();  // a full read buffer stops the reports of new characters
  system_->port.clear(QSerialPort::Input);
}
