#include "platform/desktop/serial_port.h"

#include <QStringList>

SerialPort::SerialPort() {
  reminder_.setSingleShot(true);
  connect(&reminder_, &QTimer::timeout, this, [this] {
    resting_ = false;
    Arrived();
  });
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
  if (resting_ || threshold_ <= 0 || line_.Waiting() < threshold_) return;
  if (onComm && onComm()) Remind();
}

bool SerialPort::SetCommPort(std::int16_t number) {
  const QString device = DeviceOf(number, deviceFolder);
  if (IsOpen() || device.isEmpty()) return false;
  device_ = device;
  return true;
}

bool SerialPort::SetSettings(const std::string& settings) {
  const QStringList parts = QString::fromStdString(settings).split(',');
  bool isNumber = false;
  const int speed = parts[0].trimmed().toInt(&isNumber);
  if (!isNumber || speed <= 0 || parts.mid(1) != QStringList{"n", "8", "1"}) return false;
  speed_ = speed;
  return true;
}
