#include "platform/desktop/desktop_platform.h"

#include <QApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>
#include <algorithm>

#include "platform/desktop/files.h"
#include "platform/desktop/launcher.h"
#include "platform/desktop/qt_text.h"
#include "platform/drive_paths.h"
#include "platform/stdio_files.h"
#include "workspace/record/workspace.h"

Desktop::Desktop()
#ifdef _WIN32
    : settings_(QString("HKEY_CURRENT_USER\\Software\\") + kProgramTitle, QSettings::NativeFormat) {
#else
    : settings_(QSettings::IniFormat, QSettings::UserScope, kProgramTitle, kProgramTitle) {
#endif
  settings_.setFallbacksEnabled(false);
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
  const QVariant value = settings_.value(SettingName(section, key));
  if (!value.isValid()) return otherwise;
  // QSettings reads a text with a comma as a list if a user has written it without quotes.
  return FromQt(value.toStringList().join(", "));
}

void Desktop::StoreSetting(const std::string& section, const std::string& key,
                           const std::string& text) {
  settings_.setValue(SettingName(section, key), ToQt(text));
}

// Returns the name under which a setting is stored, in its stored case, because QSettings compares
// the names in a file with case.
QString Desktop::SettingName(const std::string& section, const std::string& key) const {
  QString wanted = ToQt(section + "/" + key);
  for (const QString& name : settings_.allKeys())
    if (name.compare(wanted, Qt::CaseInsensitive) == 0) return name;
  return wanted;
}

void Desktop::FlushSettings() {
  // A copy of the program that was killed while it created its lock file leaves an empty one, for
  // which QSettings would wait half a minute. A running copy writes into its lock file at once.
  const QFileInfo lock(settings_.fileName() + ".lock");
  if (lock.exists() && lock.size() == 0 &&
      lock.lastModified().secsTo(QDateTime::currentDateTime()) > 1)
    QFile::remove(lock.filePath());
  settings_.sync();
}

bool Desktop::ContainsFile(const std::string& folder, std::string_view ending) {
  const auto places = PlacesOf(folder);
  return std::any_of(places.begin(), places.end(),
                     [&](const auto& place) { return ::ContainsFile(place, ending); });
}

std::unique_ptr<File> Desktop::OpenToRead(const std::string& path) {
  return OpenStdioToRead(PathToRead(path));
}

std::unique_ptr<File> Desktop::OpenToWrite(const std::string& path) {
  return OpenStdioToWrite(PathToWrite(path));
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
  // The logic starts the text viewer in a normal window and the map viewers minimised. Failures of
  // the map viewers are ignored.
  if (style != WindowStyle::Normal) return StartProgram(command, style, {});
  return StartProgram(command, style, [this, alive = QPointer(&serial)] {
    if (alive != nullptr) ReportViewerFailure();
  });
}

void Desktop::SetFocus(WindowName window) {
  if (focusWindow) focusWindow(window);
}

std::chrono::year_month_day Desktop::Today() {
  const QDate today = QDate::currentDate();
  return std::chrono::year(today.year()) / today.month() / today.day();
}
