#include "platform/desktop/settings.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include "platform/desktop/qt_text.h"
#include "workspace/record/workspace.h"

namespace {

// The name under which a setting stands in the file, whose names tell case apart.
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
  // A text with a comma that someone wrote by hand reads as a list.
  return FromQt(value.toStringList().join(", "));
}

void SettingsStore::Store(const std::string& section, const std::string& key,
                          const std::string& text) {
  settings.setValue(NameOf(settings, section, key), ToQt(text));
}

void SettingsStore::Flush() {
  // A copy that was killed as it took its lock leaves it empty, and QSettings would wait for half a
  // minute. A copy that runs writes into its lock at once.
  const QFileInfo lock(settings.fileName() + ".lock");
  if (lock.exists() && lock.size() == 0 &&
      lock.lastModified().secsTo(QDateTime::currentDateTime()) > 1)
    QFile::remove(lock.filePath());
  settings.sync();
}
