// The serial control over a serial device.
#pragma once

#include <QTimer>
#include <functional>
#include <string>
#include <utility>

#include "platform/desktop/serial_device.h"
#include "platform/platform.h"

// Raises an event on the event loop whenever the receive buffer has one due. Until the program
// handles the event, the buffer keeps its characters and the port discards further ones.
class SerialPort : public QObject, public SerialControl {
 public:
  SerialPort();

  QString deviceFolder = kDeviceFolder;

  // Handles an event; returns whether the program handled it. It cannot while another command runs,
  // such as one that shows a message box; Recheck then raises the event again.
  std::function<bool()> onComm;
  // Checks whether an event is due, and raises it: on the event loop, so that the windows respond
  // between two events of a fast device.
  void Recheck() {
    if (!isPaused_) timer_.start(0);
  }
  // Raises no event for three seconds, so that the user can stop a receiver whose positions show
  // one message box after the other.
  void PauseEvents();

  bool Open(int port, int speed) override;
  void Close() override { device_.Close(); }
  bool IsOpen() const override { return device_.IsOpen(); }
  std::string Input() override { return std::exchange(buffer_, {}); }

 private:
  void OnData();
  void DiscardNewCharacters() {
    arrived_.clear();
    device_.Discard();
  }

  SerialDevice device_{[this] { OnData(); }};
  std::string buffer_;   // receive buffer
  std::string arrived_;  // characters read from the device that are not yet in the buffer
  QTimer timer_;         // ends a pause, or starts a check at once
  bool isPaused_ = false;
};
