// A serial device of the system: 8 data bits, no parity, 1 stop bit, no handshake.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>

// The folder of the system's serial devices.
extern const char* const kDeviceFolder;

// Returns the device of a port number; empty for a number without one.
// On Windows port 1 is COM1 and so on, without an upper limit. On Linux COM1 to COM8 are /dev/ttyS0
// to 7, COM9 to COM16 /dev/ttyUSB0 to 7, COM17 to COM24 /dev/ttyACM0 to 7, COM25 to COM32
// /dev/rfcomm0 to 7. Small boards name their built-in port differently: if there is no
// /dev/ttyS6, COM7 is /dev/ttyAMA0; if there is no /dev/ttyS7, COM8 is /dev/serial0.
QString DeviceOf(int port, const QString& folder = kDeviceFolder);

// One serial device; closed until Open succeeds.
class SerialDevice {
 public:
  // Calls `onData` on the event loop when characters may have arrived.
  explicit SerialDevice(const std::function<void()>& onData);
  ~SerialDevice();

  // Opens a device at a speed in baud and discards the characters that arrived before. False if
  // there is no such device, another program uses it, or it does not support the speed.
  [[nodiscard]] bool Open(const QString& device, int speed);
  void Close();  // harmless if closed
  // A device that was unplugged or hung up closes itself.
  bool IsOpen() const;
  // Returns characters that have arrived and not been read; empty if there are none.
  std::string Read();
  // Discards all characters that have arrived, including those in the system's queue.
  void Discard();

 private:
  struct System;
  std::unique_ptr<System> system_;
};
