#include "platform/desktop/launcher.h"

#include <windows.h>

#include "platform/desktop/qt_text.h"

bool StartProgram(const std::string& command, WindowStyle style,
                  const std::function<void()>& /*onFailure*/) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = style == WindowStyle::Normal ? SW_SHOWNORMAL : SW_SHOWMINIMIZED;
  std::wstring line = ToQt(command).toStdWString();
  PROCESS_INFORMATION started{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &started))
    return false;
  CloseHandle(started.hThread);
  CloseHandle(started.hProcess);
  return true;
}
