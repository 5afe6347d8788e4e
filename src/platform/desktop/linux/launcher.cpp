#include "platform/desktop/launcher.h"

#include <unistd.h>

#include <QElapsedTimer>
#include <QProcess>
#include <chrono>
#include <string_view>

#include "platform/desktop/files.h"

namespace {

// xdg-open may run as long as its viewer; an error after this time is the viewer's own affair.
constexpr std::chrono::seconds kWatchTime(10);

// The path or address of a command line; the logic writes two blanks behind "/c".
std::string TargetOf(const std::string& command) {
  for (const std::string_view prefix : {"Notepad.exe ", "cmd /c  start "})
    if (command.compare(0, prefix.size(), prefix) == 0) return command.substr(prefix.size());
  return command;
}

void CallOnFailure(QProcess& viewer, const std::function<void()>& onFailure) {
  QElapsedTimer sinceStart;
  sinceStart.start();
  const auto onEnd = [sinceStart, onFailure](int exitCode, QProcess::ExitStatus status) {
    const bool failed = exitCode != 0 || status != QProcess::NormalExit;
    if (failed && onFailure && std::chrono::milliseconds(sinceStart.elapsed()) < kWatchTime) onFailure();
  };
  QObject::connect(&viewer, &QProcess::finished, &viewer, onEnd);
}

}  // namespace

bool StartProgram(const std::string& command, WindowStyle /*style*/,
                  const std::function<void()>& onFailure) {
  std::string target = TargetOf(command);
  // An absolute path, so that no file name is taken for an option.
  std::error_code error;
  if (target.compare(0, 8, "https://") != 0)
    target = std::filesystem::absolute(PathToRead(target), error).string();
  // Deletes itself when the viewer ends. It has no owner, because deleting it earlier, at the end
  // of this program, would kill the viewer.
  auto* viewer = new QProcess;
  QObject::connect(viewer, &QProcess::finished, viewer, &QObject::deleteLater);
  CallOnFailure(*viewer, onFailure);
  viewer->setProgram("xdg-open");
  viewer->setArguments({QString::fromStdString(target)});
  viewer->setStandardInputFile(QProcess::nullDevice());
  viewer->setStandardOutputFile(QProcess::nullDevice());
  viewer->setStandardErrorFile(QProcess::nullDevice());
  // A session of its own: Ctrl+C in the terminal of this program must not end the viewer.
  viewer->setChildProcessModifier([] { setsid(); });
  viewer->start();
  if (viewer->waitForStarted()) return true;
  delete viewer;
  return false;
}
