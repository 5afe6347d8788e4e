#include "platform/desktop/settings.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include "platform/desktop/qt_text.h"
#include "workspace/record/workspace.h"

namespace {

// The name of a setting in the file. QSettings compares the names of a file with case; the settings
// of the program compare without.
QString NameOf(const QSettings& settings, const std::string& section, const std::string& key) {
  QString wanted = ToQt(section + "/" + key);
  for (const QString& name : settings.allKeys())
    if (name.compare(wanted, Qt::CaseInsensitive) == 0) return name;
  return wanted;
}

}  // namespace

SettingsStore::SettingsStore()
    : settings(QSettings::IniFormat, QSettings::UserScope, kProgramTitle, kProgramTitle) {
  settings.setFallbacksEnabled(false);
}

std::string SettingsStore::Read(const std::string& section, const std::string& key,
                                const std::string& otherwise) const {
  const QVariant value = settings.value(NameOf(settings, section, key));
  if (!value.isValid()) return otherwise;
  // QSettings reads a text with a comma as a list if a user has written it without quotes.
  return FromQt(value.toStringList().join(", "));
}

void SettingsStore::Store(const std::string& section, const std::string& key,
                          const std::string& text) {
  settings.setValue(NameOf(settings, section, key), ToQt(text));
}

void SettingsStore::Flush() {
  // A copy of the program that was killed while it created its lock file leaves an empty one, for
  // which QSettings would wait half a minute. A running copy writes into its lock file at once.
  const QFileInfo lock(settings.fileName() + ".lock");
  if (lock.exists() && lock.size() == 0 &&
      lock.lastModified().secsTo(QDateTime::currentDateTime()) > 1)
    QFile::remove(lock.filePath());
  settings.sync();
}
