#include "platform/desktop/settings.h"

#include "platform/desktop/qt_text.h"
#include "workspace/record/workspace.h"

namespace {

// The registry itself compares names without case.
QString NameOf(const std::string& section, const std::string& key) {
  return ToQt(section + "/" + key);
}

}  // namespace

SettingsStore::SettingsStore()
    : settings(QString("HKEY_CURRENT_USER\\Software\\") + kProgramTitle, QSettings::NativeFormat) {}

std::string SettingsStore::Read(const std::string& section, const std::string& key,
                                const std::string& otherwise) const {
  const QVariant value = settings.value(NameOf(section, key));
  return value.isValid() ? FromQt(value.toString()) : otherwise;
}

void SettingsStore::Store(const std::string& section, const std::string& key,
                          const std::string& text) {
  settings.setValue(NameOf(section, key), ToQt(text));
}

void SettingsStore::Flush() {
  settings.sync();
}
