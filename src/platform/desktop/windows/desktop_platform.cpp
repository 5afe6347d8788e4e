#include "platform/desktop/desktop_platform.h"

#include <windows.h>

#include <QCoreApplication>

#include "platform/desktop/qt_text.h"
#include "workspace/record/workspace.h"

Desktop::Desktop()
    : settings_(QString("HKEY_CURRENT_USER\\Software\\") + kProgramTitle, QSettings::NativeFormat) {
}

std::vector<std::filesystem::path> Desktop::CandidatePaths(const std::string& path) const {
  const std::filesystem::path file = SystemPath(CleanPath(path));
  if (file.root_name() != L"c:" && file.root_name() != L"C:") return {file};
  return {file, QCoreApplication::applicationDirPath().toStdWString() / file.relative_path()};
}

// Runs the command line unchanged and never reports that a viewer failed after its start.
bool Desktop::Shell(const std::string& command, WindowStyle style) {
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
