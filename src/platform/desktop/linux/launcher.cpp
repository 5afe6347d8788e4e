#include "platform/desktop/launcher.h"

#include <unistd.h>

#include <QElapsedTimer>
#include <QProcess>
#include <chrono>
#include <string_view>

#include "platform/desktop/files.h"

namespace {

// xdg-open may run as long as its viewer. Only an error within this time means that it could not
// show the file; a later one comes from the viewer.
constexpr std::chrono::milliseconds kWatchTime(10'000);

}  // namespace

bool StartProgram(const std::string& command, WindowStyle /*style*/,
                  const std::function<void()>& onFailure) {
  std::string target = command;
  for (const std::string_view start : {"Notepad.exe ", "cmd /c  start "})
    if (target.starts_with(start)) target.erase(0, start.size());
  // An absolute path, so that xdg-open takes no file name for an option.
  std::error_code error;
  if (!target.starts_with("https://"))
    target = std::filesystem::absolute(PathToRead(target), error).string();
  // Deleted when the viewer ends. It has no owner, because an owner would delete it at the end of
  // this program, which would kill the viewer.
  auto* viewer = new QProcess;
  QElapsedTimer sinceStart;
  sinceStart.start();
  const auto onEnd = [viewer, sinceStart, onFailure](int exitCode, QProcess::ExitStatus status) {
    viewer->deleteLater();
    const bool failed = exitCode != 0 || status != QProcess::NormalExit;
    if (failed && onFailure && sinceStart.elapsed() < kWatchTime.count()) onFailure();
  };
  QObject::connect(viewer, &QProcess::finished, viewer, onEnd);
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
