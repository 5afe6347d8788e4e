#include "platform/desktop/serial_device.h"

#include <signal.h>
#include <sys/file.h>

#include <QFile>
#include <QFileInfo>
#include <QSerialPort>
#include <cerrno>

namespace {

// Whether a running program has marked the device as its own in the old way, by a lock file that
// holds its process number and nothing else. Qt would take the mark for a left-over of its own and
// remove it.
bool IsMarkedAsHeld(const QString& device) {
  QFile mark("/var/lock/LCK.." + QFileInfo(device).fileName());
  if (!mark.open(QIODevice::ReadOnly)) return false;
  const pid_t holder = mark.readLine().trimmed().toInt();
  return holder > 0 && mark.atEnd() && (kill(holder, 0) == 0 || errno == EPERM);
}

}  // namespace

const char* const kDeviceFolder = "/dev";

QString DeviceOf(int port, const QString& folder) {
  static constexpr const char* kFamilies[] = {"ttyS", "ttyUSB", "ttyACM", "rfcomm"};
  if (port < 1 || port > 32) return {};
  return QString("%1/%2%3").arg(folder, kFamilies[(port - 1) / 8]).arg((port - 1) % 8);
}

struct SerialLine::System {
  QSerialPort port;
};

// A device that vanished or hung up would report its error without end. Signals that a device does
// not have, as on a pseudo terminal, are no reason to close.
SerialLine::SerialLine(const std::function<void()>& arrived) : system_(std::make_unique<System>()) {
  QSerialPort& port = system_->port;
  QObject::connect(&port, &QSerialPort::readyRead, &port, arrived);
  QObject::connect(&port, &QSerialPort::errorOccurred, &port,
                   [this](QSerialPort::SerialPortError error) {
                     if (error == QSerialPort::ReadError || error == QSerialPort::ResourceError)
                       Close();
                   });
}

SerialLine::~SerialLine() = default;

bool SerialLine::Open(const QString& device, int speed) {
  QSerialPort& port = system_->port;
  if (!QFileInfo::exists(device) || IsMarkedAsHeld(device)) return false;
  port.setPortName(device);
  if (!port.setBaudRate(speed) || !port.open(QIODevice::ReadOnly)) return false;
  if (flock(port.handle(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    Close();
    return false;
  }
  port.clear(QSerialPort::Input);
  return true;
}

void SerialLine::Close() {
  if (IsOpen()) system_->port.close();
}

bool SerialLine::IsOpen() const {
  return system_->port.isOpen();
}

void SerialLine::SetBufferSize(int characters) {
  system_->port.setReadBufferSize(characters);
}

int SerialLine::Waiting() {
  return static_cast<int>(system_->port.bytesAvailable());
}

std::string SerialLine::Read() {
  return system_->port.readAll().toStdString();
}
