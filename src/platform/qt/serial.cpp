#include "platform/qt/serial.h"

#include <signal.h>
#include <sys/file.h>

#include <QFile>
#include <QFileInfo>
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

QString DeviceOf(int port, const QString& folder) {
  static constexpr const char* kFamilies[] = {"ttyS", "ttyUSB", "ttyACM", "rfcomm"};
  if (port < 1 || port > 32) return {};
  return QString("%1/%2%3").arg(folder, kFamilies[(port - 1) / 8]).arg((port - 1) % 8);
}

SerialPort::SerialPort() {
  reminder_.setSingleShot(true);
  connect(&reminder_, &QTimer::timeout, this, [this] {
    resting_ = false;
    Arrived();
  });
  connect(&port_, &QSerialPort::readyRead, this, &SerialPort::Arrived);
  connect(&port_, &QSerialPort::errorOccurred, this, &SerialPort::Failed);
}

// Queued, so that between two events the windows have their turn however fast the line is.
void SerialPort::Remind() {
  if (!resting_) reminder_.start(0);
}

void SerialPort::Rest() {
  resting_ = true;
  reminder_.start(1000);
}

void SerialPort::Arrived() {
  if (resting_ || !IsOpen() || threshold_ <= 0 || port_.bytesAvailable() < threshold_) return;
  if (onComm && onComm()) Remind();
}

// A device that vanished or hung up would report its error without end. Signals that a device does
// not have, as on a pseudo terminal, are no reason to close.
void SerialPort::Failed(QSerialPort::SerialPortError error) {
  if (error == QSerialPort::ReadError || error == QSerialPort::ResourceError) Close();
}

bool SerialPort::SetCommPort(std::int16_t number) {
  const QString device = DeviceOf(number, deviceFolder);
  if (IsOpen() || device.isEmpty()) return false;
  device_ = device;
  return true;
}

void SerialPort::SetInBufferSize(int characters) {
  port_.setReadBufferSize(characters);
}

bool SerialPort::SetSettings(const std::string& settings) {
  const QStringList parts = QString::fromStdString(settings).split(',');
  bool isNumber = false;
  const int speed = parts[0].trimmed().toInt(&isNumber);
  if (!isNumber || speed <= 0 || parts.mid(1) != QStringList{"n", "8", "1"}) return false;
  return port_.setBaudRate(speed);
}

bool SerialPort::Open() {
  if (IsOpen() || !QFileInfo::exists(device_) || IsMarkedAsHeld(device_)) return false;
  port_.setPortName(device_);
  if (!port_.open(QIODevice::ReadOnly)) return false;
  if (flock(port_.handle(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    Close();
    return false;
  }
  port_.clear(QSerialPort::Input);  // what came while the port was closed is lost
  return true;
}

void SerialPort::Close() {
  if (IsOpen()) port_.close();
}

std::string SerialPort::Input() {
  return port_.readAll().toStdString();
}
