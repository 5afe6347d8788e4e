// The serial control over a serial line.
#pragma once

#include <QTimer>
#include <functional>
#include <string>

#include "platform/desktop/serial_device.h"
#include "platform/platform.h"

// Tells the logic of characters that wait, by the threshold that it has set.
class SerialPort : public QObject, public SerialControl {
 public:
  SerialPort();

  QString deviceFolder = kDeviceFolder;

  // Called on the event loop when as many characters wait as the threshold says. Gives whether the
  // event could be taken; if not, Remind brings it up again.
  std::function<bool()> onComm;
  // Looks again whether an event is due.
  void Remind();
  // No event for a second: after a message box the user's hand comes first.
  void Rest();

  bool SetCommPort(std::int16_t number) override;
  void SetInBufferSize(int characters) override { line_.SetBufferSize(characters); }
  bool SetSettings(const std::string& settings) override;
  void SetRThreshold(int characters) override { threshold_ = characters; }
  bool Open() override { return !IsOpen() && line_.Open(device_, speed_); }
  void Close() override { line_.Close(); }
  bool IsOpen() const override { return line_.IsOpen(); }
  std::string Input() override { return line_.Read(); }

 private:
  void Arrived();

  SerialLine line_{[this] { Arrived(); }};
  QTimer reminder_;
  QString device_;  // of the chosen port
  int speed_ = 9600;
  int threshold_ = 0;
  bool resting_ = false;
};
