#include "platform/desktop/serial_device.h"

#include <windows.h>

#include <QTimer>
#include <chrono>

namespace {

// How often an open port is polled. Waiting for the next character would be quicker, but the
// drivers of unplugged devices make such a wait endless.
constexpr std::chrono::milliseconds kPollInterval(20);

// Size of the system's receive queue in bytes: a minute of a receiver at 9600 baud.
constexpr DWORD kQueueSize = 65536;

bool SetUp(HANDLE port, int speed) {
  DCB line{};
  line.DCBlength = sizeof line;
  if (!GetCommState(port, &line)) return false;
  line.BaudRate = static_cast<DWORD>(speed);
  line.ByteSize = 8;
  line.Parity = NOPARITY;
  line.StopBits = ONESTOPBIT;
  line.fBinary = TRUE;
  line.fParity = line.fNull = line.fErrorChar = line.fAbortOnError = FALSE;
  line.fOutxCtsFlow = line.fOutxDsrFlow = line.fDsrSensitivity = FALSE;
  line.fOutX = line.fInX = FALSE;
  // Some receivers take their power from these two lines.
  line.fDtrControl = DTR_CONTROL_ENABLE;
  line.fRtsControl = RTS_CONTROL_ENABLE;
  COMMTIMEOUTS returnAtOnce{};
  returnAtOnce.ReadIntervalTimeout = MAXDWORD;
  return SetupComm(port, kQueueSize, 0) && SetCommState(port, &line) &&
         SetCommTimeouts(port, &returnAtOnce) && PurgeComm(port, PURGE_RXABORT | PURGE_RXCLEAR);
}

}  // namespace

const char* const kDeviceFolder = R"(\\.)";

QString DeviceOf(int port, const QString& folder) {
  if (port < 1) return {};
  return QString(R"(%1\COM%2)").arg(folder).arg(port);
}

struct SerialDevice::System {
  HANDLE port = INVALID_HANDLE_VALUE;
  QTimer poll;
};

SerialDevice::SerialDevice(const std::function<void()>& onData)
    : system_(std::make_unique<System>()) {
  system_->poll.setInterval(kPollInterval);
  QObject::connect(&system_->poll, &QTimer::timeout, onData);
}

SerialDevice::~SerialDevice() {
  Close();
}

bool SerialDevice::Open(const QString& device, int speed) {
  system_->port = CreateFileW(device.toStdWString().c_str(), GENERIC_READ, 0, nullptr,
                              OPEN_EXISTING, 0, nullptr);
  if (!IsOpen() || !SetUp(system_->port, speed)) {
    Close();
    return false;
  }
  system_->poll.start();
  return true;
}

void SerialDevice::Close() {
  system_->poll.stop();
  if (IsOpen()) CloseHandle(system_->port);
  system_->port = INVALID_HANDLE_VALUE;
}

bool SerialDevice::IsOpen() const {
  return system_->port != INVALID_HANDLE_VALUE;
}

std::string SerialDevice::Read() {
  if (!IsOpen()) return {};
  DWORD errors = 0;
  COMSTAT line{};
  if (!ClearCommError(system_->port, &errors, &line)) {
    Close();
    return {};
  }
  std::string text(line.cbInQue, '\0');
  DWORD count = 0;
  if (!text.empty() &&
      !ReadFile(system_->port, text.data(), static_cast<DWORD>(text.size()), &count, nullptr))
    Close();
  text.resize(count);
  return text;
}

void SerialDevice::Discard() {
  if (IsOpen() && !PurgeComm(system_->port, PURGE_RXCLEAR)) Close();
}
