#include "platform/desktop/serial_device.h"

#include <windows.h>

#include <QTimer>
#include <algorithm>
#include <chrono>

namespace {

// The line is looked at this often while it is open. A wait for the next character would be told
// sooner, but drivers of devices that were pulled out let it wait for ever.
constexpr std::chrono::milliseconds kBetweenLooks(20);

// What the system keeps while nobody reads: a minute of a receiver at 9600.
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
  // Some receivers live on these two.
  line.fDtrControl = DTR_CONTROL_ENABLE;
  line.fRtsControl = RTS_CONTROL_ENABLE;
  COMMTIMEOUTS whatIsThere{};
  whatIsThere.ReadIntervalTimeout = MAXDWORD;
  return SetupComm(port, kQueueSize, 0) && SetCommState(port, &line) &&
         SetCommTimeouts(port, &whatIsThere) && PurgeComm(port, PURGE_RXABORT | PURGE_RXCLEAR);
}

}  // namespace

const char* const kDeviceFolder = R"(\\.)";

QString DeviceOf(int port, const QString& folder) {
  if (port < 1 || port > 32) return {};
  return QString(R"(%1\COM%2)").arg(folder).arg(port);
}

struct SerialLine::System {
  HANDLE port = INVALID_HANDLE_VALUE;
  DWORD bufferSize = 128;
  QTimer look;
};

SerialLine::SerialLine(const std::function<void()>& arrived) : system_(std::make_unique<System>()) {
  system_->look.setInterval(kBetweenLooks);
  QObject::connect(&system_->look, &QTimer::timeout, arrived);
}

SerialLine::~SerialLine() {
  Close();
}

bool SerialLine::Open(const QString& device, int speed) {
  system_->port = CreateFileW(device.toStdWString().c_str(), GENERIC_READ, 0, nullptr,
                              OPEN_EXISTING, 0, nullptr);
  if (!IsOpen()) return false;
  if (!SetUp(system_->port, speed)) {
    Close();
    return false;
  }
  system_->look.start();
  return true;
}

void SerialLine::Close() {
  system_->look.stop();
  if (IsOpen()) CloseHandle(system_->port);
  system_->port = INVALID_HANDLE_VALUE;
}

bool SerialLine::IsOpen() const {
  return system_->port != INVALID_HANDLE_VALUE;
}

void SerialLine::SetBufferSize(int characters) {
  system_->bufferSize = static_cast<DWORD>(characters);
}

int SerialLine::Waiting() {
  if (!IsOpen()) return 0;
  DWORD errors = 0;
  COMSTAT line{};
  if (!ClearCommError(system_->port, &errors, &line)) Close();
  return static_cast<int>(std::min(line.cbInQue, system_->bufferSize));
}

std::string SerialLine::Read() {
  std::string text(static_cast<std::size_t>(Waiting()), '\0');
  DWORD taken = 0;
  if (!text.empty() &&
      !ReadFile(system_->port, text.data(), static_cast<DWORD>(text.size()), &taken, nullptr))
    Close();
  text.resize(taken);
  return text;
}
