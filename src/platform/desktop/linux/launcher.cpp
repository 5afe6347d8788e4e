#include "platform/desktop/launcher.h"

#include <QProcess>
#include <string_view>

#include "platform/desktop/files.h"

namespace {

// What the command line hands over; the blanks behind "/c" are two.
std::string TargetOf(const std::string& command) {
  for (const std::string_view prefix : {"Notepad.exe ", "cmd /c  start "})
    if (command.compare(0, prefix.size(), prefix) == 0) return command.substr(prefix.size());
  return command;
}

}  // namespace

bool StartProgram(const std::string& command, WindowStyle /*style*/) {
  std::string target = TargetOf(command);
  // Made absolute, so that no file name is taken for an option.
  std::error_code error;
  if (target.compare(0, 8, "https://") != 0)
    target = std::filesystem::absolute(NativePath(target), error).string();
  QProcess viewer;
  viewer.setProgram("xdg-open");
  viewer.setArguments({QString::fromStdString(target)});
  viewer.setStandardInputFile(QProcess::nullDevice());
  viewer.setStandardOutputFile(QProcess::nullDevice());
  viewer.setStandardErrorFile(QProcess::nullDevice());
  return viewer.startDetached();
}
