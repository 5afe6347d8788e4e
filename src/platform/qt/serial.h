// The serial control over Qt SerialPort. COM1 to COM8 are /dev/ttyS0 to 7, COM9 to COM16
// /dev/ttyUSB0 to 7, COM17 to COM24 /dev/ttyACM0 to 7, COM25 to COM32 /dev/rfcomm0 to 7.
#pragma once

#include <QSerialPort>
#include <QTimer>
#include <functional>
#include <string>

#include "platform/platform.h"

// The device of a port number; empty for a number that names no port.
QString DeviceOf(int port, const QString& folder = "/dev");

class SerialPort : public QObject, public SerialControl {
 public:
  SerialPort();

  QString deviceFolder = "/dev";

  // Called on the event loop when as many characters wait as the threshold says. Gives whether the
  // event could be taken; if not, Remind brings it up again.
  std::function<bool()> onComm;
  void Remind();
  // No event for a second: after a message box the user's hand comes first.
  void Rest();

  bool SetCommPort(std::int16_t number) override;
  void SetInBufferSize(int characters) override;
  bool SetSettings(const std::string& settings) override;
  void SetRThreshold(int characters) override { threshold_ = characters; }
  bool Open() override;
  void Close() override;
  bool IsOpen() const override { return port_.isOpen(); }
  std::string Input() override;

 private:
  void Arrived();
  void Failed(QSerialPort::SerialPortError error);

  QSerialPort port_;
  QTimer reminder_;
  QString device_;  // of the chosen port
  int threshold_ = 0;
  bool resting_ = false;
};
