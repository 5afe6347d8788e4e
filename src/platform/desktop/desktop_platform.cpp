#include "platform/desktop/desktop_platform.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QTimer>
#include <QUrl>

#include "platform/desktop/qt_text.h"
#include "workspace/record/workspace.h"

std::string CleanPath(const std::string& path) {
  QString text = ToQt(path).trimmed();
  for (const QChar quote : {'"', '\''})
    if (text.size() >= 2 && text.startsWith(quote) && text.endsWith(quote))
      text = text.mid(1, text.size() - 2);
  if (text.startsWith("file://", Qt::CaseInsensitive)) text = QUrl(text).toLocalFile();
  if (text.startsWith("~/")) text = QDir::homePath() + text.mid(1);
  return FromQt(text);
}

void Desktop::ReportViewerFailure() {
  if (!onViewerFailure())
    QTimer::singleShot(std::chrono::milliseconds(100), &serial, [this] { ReportViewerFailure(); });
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

void Desktop::MsgBox(const std::string& text) {
  showRecord();
  QMessageBox box(QMessageBox::NoIcon, kProgramTitle, ToQt(text), QMessageBox::Ok,
                  QApplication::activeWindow());
  QApplication::setOverrideCursor(Qt::ArrowCursor);
  box.exec();
  QApplication::restoreOverrideCursor();
  serial.PauseEvents();
}

std::chrono::year_month_day Desktop::Today() {
  const QDate today = QDate::currentDate();
  return std::chrono::year(today.year()) / today.month() / today.day();
}
