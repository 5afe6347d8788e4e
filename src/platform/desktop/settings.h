// The per-user settings store. What another running copy stored meanwhile is kept.
// On Linux a file in the user's configuration folder, replaced as a whole, so that a crash leaves
// the old or the new values; a damaged one gives the values that can be read. On Windows the
// registry, HKEY_CURRENT_USER\Software\Tarnwick with a key for each section.
#pragma once

#include <QSettings>
#include <string>

// Names of sections and keys compare without case.
struct SettingsStore {
  SettingsStore();

  // A stored text, or `otherwise` if there is none.
  std::string Read(const std::string& section, const std::string& key,
                   const std::string& otherwise) const;
  void Store(const std::string& section, const std::string& key, const std::string& text);
  // Writes what was stored.
  void Flush();

  QSettings settings;
};
