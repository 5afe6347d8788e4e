#include "platform/qt/serial.h"

#include <QFileInfo>
#include <QTimer>

QString DeviceOf(int port) {
  static constexpr const char* kFamilies[] = {"ttyS", "ttyUSB", "ttyACM", "rfcomm"};
  if (port < 1 || port > 32) return {};
  return QString("/dev/%1%2").arg(kFamilies[(port - 1) / 8]).arg((port - 1) % 8);
}

SerialPort::SerialPort() {
  connect(&port_, &QSerialPort::readyRead, this, &SerialPort::Arrived);
  connect(&port_, &QSerialPort::errorOccurred, this, &SerialPort::Failed);
}

// Queued, so that between two events the windows have their turn however fast the line is.
void SerialPort::Remind() { QTimer::singleShot(0, this, &SerialPort::Arrived); }

void SerialPort::Arrived() {
  if (!IsOpen() || threshold_ <= 0 || port_.bytesAvailable() < threshold_) return;
  if (onComm && onComm()) Remind();
}

// A device that vanished or hung up would report its error without end. Signals that a device does
// not have, as on a pseudo terminal, are no reason to close.
void SerialPort::Failed(QSerialPort::SerialPortError error) {
  if (error == QSerialPort::ReadError || error == QSerialPort::ResourceError) Close();
}

bool SerialPort::SetCommPort(std::int16_t number) {
  if (IsOpen() || DeviceOf(number).isEmpty()) return false;
  port_.setPortName(DeviceOf(number));
  return true;
}

void SerialPort::SetInBufferSize(int characters) { port_.setReadBufferSize(characters); }

bool SerialPort::SetSettings(const std::string& settings) {
  const QStringList parts = QString::fromStdString(settings).split(',');
  bool isNumber = false;
  const int speed = parts[0].trimmed().toInt(&isNumber);
  if (!isNumber || speed <= 0 || parts.mid(1) != QStringList{"n", "8", "1"}) return false;
  return port_.setBaudRate(speed);
}

bool SerialPort::Open() {
  if (IsOpen() || !QFileInfo::exists(port_.portName())) return false;
  if (!port_.open(QIODevice::ReadOnly)) return false;
  return true;
}

void SerialPort::Close() {
  if (IsOpen()) port_.close();
}

std::string SerialPort::Input() { return port_.readAll().toStdString(); }
