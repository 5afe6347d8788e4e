#include "platform/desktop/serial_port.h"

#include <chrono>

#include "platform/receive_buffer.h"

SerialPort::SerialPort() {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, [this] {
    // Characters that are unread at the end of a pause arrived during it; discard them too.
    if (isPaused_) DiscardNewCharacters();
    isPaused_ = false;
    OnData();
  });
}

void SerialPort::PauseEvents() {
  isPaused_ = true;
  timer_.start(std::chrono::seconds(3));
}

void SerialPort::OnData() {
  if (!IsOpen()) return;
  if (!Fill(buffer_, arrived_) && !Fill(buffer_, arrived_ += device_.Read())) return;
  if (!isPaused_ && onComm && onComm())
    Recheck();
  else
    DiscardNewCharacters();
}

bool SerialPort::Open(int port, int speed) {
  if (IsOpen()) return false;
  timer_.stop();
  isPaused_ = false;
  buffer_.clear();
  arrived_.clear();
  return device_.Open(DeviceOf(port, deviceFolder), speed);
}
