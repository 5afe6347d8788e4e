#include "platform/desktop/serial_port.h"

#include <chrono>

#include "platform/serial_settings.h"

namespace {

constexpr std::chrono::seconds kPause(3);

}  // namespace

SerialPort::SerialPort() {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, [this] {
    // What arrived in the last moments of a pause is as old as what was discarded during it.
    if (isPaused_) DiscardNewCharacters();
    isPaused_ = false;
    OnData();
  });
}

// By way of the event loop, so that the windows react between two events of a fast device.
void SerialPort::Recheck() {
  if (!isPaused_) timer_.start(0);
}

void SerialPort::PauseEvents() {
  isPaused_ = true;
  timer_.start(kPause);
}

void SerialPort::OnData() {
  if (!IsOpen()) return;
  Fill(buffer_, arrived_);
  if (!IsEventDue(buffer_)) {
    arrived_ += device_.Read();
    Fill(buffer_, arrived_);
  }
  if (!IsEventDue(buffer_)) return;
  if (!isPaused_ && onComm && onComm())
    Recheck();
  else
    DiscardNewCharacters();
}

void SerialPort::DiscardNewCharacters() {
  arrived_.clear();
  device_.Discard();
}

bool SerialPort::SetCommPort(std::int16_t number) {
  const QString path = DeviceOf(number, deviceFolder);
  if (IsOpen() || path.isEmpty()) return false;
  path_ = path;
  return true;
}

void SerialPort::SetInBufferSize(int characters) {
  buffer_.size = static_cast<std::size_t>(characters);
}

bool SerialPort::SetSettings(const std::string& settings) {
  const std::optional<int> speed = SpeedOf(settings);
  speed_ = speed.value_or(speed_);
  return speed.has_value();
}

void SerialPort::SetRThreshold(int characters) {
  buffer_.threshold = static_cast<std::size_t>(characters);
}

bool SerialPort::Open() {
  if (IsOpen()) return false;
  timer_.stop();
  isPaused_ = false;
  buffer_.characters.clear();
  arrived_.clear();
  return device_.Open(path_, speed_);
}
