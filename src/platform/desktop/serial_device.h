// One serial line as the system has it: 8 data bits, no parity, 1 stop bit, no handshake.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>

// Where the system keeps its serial devices.
extern const char* const kDeviceFolder;

// The device of a port number; empty for a number that names no port. On Linux COM1 to COM8 are
// /dev/ttyS0 to 7, COM9 to COM16 /dev/ttyUSB0 to 7, COM17 to COM24 /dev/ttyACM0 to 7, COM25 to
// COM32 /dev/rfcomm0 to 7; on Windows they bear their own names.
QString DeviceOf(int port, const QString& folder = kDeviceFolder);

// Closed at first.
class SerialLine {
 public:
  // `arrived` is called on the event loop when characters have come.
  explicit SerialLine(const std::function<void()>& arrived);
  ~SerialLine();

  // What came while the line was closed is lost. False if there is no such device, another program
  // holds it, or it can't do the speed.
  [[nodiscard]] bool Open(const QString& device, int speed);
  void Close();  // harmless if closed
  // A device that vanished or hung up is closed.
  bool IsOpen() const;
  // As many characters count as waiting at most; the rest stay with the system.
  void SetBufferSize(int characters);
  // How many characters can be read at once.
  int Waiting();
  // The waiting characters, which are gone then.
  std::string Read();

 private:
  struct System;
  std::unique_ptr<System> system_;
};
