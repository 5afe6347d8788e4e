#include "platform/desktop/desktop_platform.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProcess>
#include <QStandardPaths>
#include <system_error>

#include "workspace/record/workspace.h"

Desktop::Desktop()
    : settings_(QSettings::IniFormat, QSettings::UserScope, kProgramTitle, kProgramTitle) {
  settings_.setFallbacksEnabled(false);
  // The folder where the database and the listing are by default.
  std::error_code error;
  std::filesystem::create_directories(CandidatePaths("c:\\geog").front(), error);
}

std::vector<std::filesystem::path> Desktop::CandidatePaths(const std::string& path) const {
  QStringList dataFolders =
      QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);  // the user's first
  dataFolders.insert(1, QCoreApplication::applicationDirPath() + "/../share");
  std::vector<std::filesystem::path> candidates;
  for (const QString& data : dataFolders)
    candidates.push_back(NativePath(data.toStdString() + "/tarnwick/drive_c", CleanPath(path)));
  return candidates;
}

// Passes the path or address of the command line, as one argument and without a shell, to xdg-open,
// which starts the desktop's default viewer for it.
bool Desktop::Shell(const std::string& command, WindowStyle style) {
  std::string target = command;
  for (const std::string_view start : {"Notepad.exe ", "cmd /c  start "})
    if (target.starts_with(start)) target.erase(0, start.size());
  // An absolute path, so that xdg-open does not read a file name as an option.
  std::error_code error;
  if (!target.starts_with("https://"))
    target = std::filesystem::absolute(PathToRead(target), error).string();
  // Deleted when the viewer ends. It has no owner, because an owner would delete it at the end of
  // this program, which would kill the viewer.
  auto* viewer = new QProcess;
  QObject::connect(viewer, &QProcess::finished, viewer, &QObject::deleteLater);
  // xdg-open may run as long as its viewer. Only an error within ten seconds means that it could
  // not show the file; a later one comes from the viewer.
  const auto onEnd = [this, watch = QDeadlineTimer(10'000)](int exitCode,
                                                            QProcess::ExitStatus status) {
    const bool failed = exitCode != 0 || status != QProcess::NormalExit;
    if (failed && !watch.hasExpired()) ReportViewerFailure();
  };
  // Failures of map viewers are ignored.
  if (style == WindowStyle::Normal) QObject::connect(viewer, &QProcess::finished, &serial, onEnd);
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
