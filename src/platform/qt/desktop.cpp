#include "platform/qt/desktop.h"

#include <QApplication>
#include <QDate>
#include <QMessageBox>

#include "platform/qt/files.h"
#include "platform/qt/programs.h"
#include "platform/qt/text.h"
#include "workspace/workspace.h"

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

std::filesystem::path Desktop::NativePath(const std::string& path) {
  return ::NativePath(path);
}

void Desktop::MsgBox(const std::string& text) {
  if (showRecord) showRecord();
  QMessageBox box(QMessageBox::NoIcon, kProgramTitle, ToQt(text), QMessageBox::Ok,
                  QApplication::activeWindow());
  QApplication::setOverrideCursor(Qt::ArrowCursor);
  box.exec();
  QApplication::restoreOverrideCursor();
  serial.Rest();
}

bool Desktop::Shell(const std::string& command, WindowStyle style) {
  return StartProgram(command, style);
}

void Desktop::SetFocus(WindowName window) {
  if (focusWindow) focusWindow(window);
}

std::chrono::year_month_day Desktop::Today() {
  const QDate today = QDate::currentDate();
  return std::chrono::year(today.year()) / today.month() / today.day();
}
