#include "platform/desktop/desktop_platform.h"

#include <QApplication>
#include <QDate>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include "platform/desktop/files.h"
#include "platform/desktop/launcher.h"
#include "platform/desktop/qt_text.h"
#include "platform/stdio_files.h"
#include "workspace/record/workspace.h"

Desktop::Desktop() {
  CreateUserFolder();
}

void Desktop::Recheck() {
  serial.Recheck();
  if (isViewerFailureDue_) QTimer::singleShot(0, &serial, [this] { ReportViewerFailure(); });
}

void Desktop::ReportViewerFailure() {
  isViewerFailureDue_ = onViewerFailure && !onViewerFailure();
}

std::string Desktop::ReadSetting(const std::string& section, const std::string& key,
                                 const std::string& otherwise) {
  return settings.Read(section, key, otherwise);
}

void Desktop::StoreSetting(const std::string& section, const std::string& key,
                           const std::string& text) {
  settings.Store(section, key, text);
}

bool Desktop::FileExists(const std::string& pattern) {
  return ::FileExists(pattern);
}

std::unique_ptr<InputFile> Desktop::OpenToRead(const std::string& path) {
  return OpenInputFile(PathToRead(path));
}

std::unique_ptr<OutputFile> Desktop::OpenToWrite(const std::string& path) {
  return OpenOutputFile(PathToWrite(path));
}

bool Desktop::IsSameFile(const std::string& path, const std::string& other) {
  std::error_code error;
  return std::filesystem::equivalent(PathToRead(path), PathToRead(other), error);
}

void Desktop::MsgBox(const std::string& text) {
  if (showRecord) showRecord();
  QMessageBox box(QMessageBox::NoIcon, kProgramTitle, ToQt(text), QMessageBox::Ok,
                  QApplication::activeWindow());
  QApplication::setOverrideCursor(Qt::ArrowCursor);
  box.exec();
  QApplication::restoreOverrideCursor();
  serial.PauseEvents();
}

bool Desktop::Shell(const std::string& command, WindowStyle style) {
  // The logic shows a text viewer as a normal window; failures of the minimised map viewers are
  // ignored.
  if (style != WindowStyle::Normal) return StartProgram(command, style, {});
  return StartProgram(command, style, [this, alive = QPointer(&serial)] {
    if (alive) ReportViewerFailure();
  });
}

void Desktop::SetFocus(WindowName window) {
  if (focusWindow) focusWindow(window);
}

std::chrono::year_month_day Desktop::Today() {
  const QDate today = QDate::currentDate();
  return std::chrono::year(today.year()) / today.month() / today.day();
}
