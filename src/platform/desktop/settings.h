// The settings store of the user. It keeps what another running copy of the program stored
// meanwhile.
// On Linux a file in the user's configuration folder, which is replaced as a whole: after a crash
// it contains the old or the new values. Of a damaged file the readable values count. On Windows
// the registry, HKEY_CURRENT_USER\Software\Tarnwick with a key for each section.
#pragma once

#include <QSettings>
#include <string>

// The names of sections and keys compare without case.
struct SettingsStore {
  SettingsStore();

  // A stored text, or `otherwise` if there is none.
  std::string Read(const std::string& section, const std::string& key,
                   const std::string& otherwise) const;
  void Store(const std::string& section, const std::string& key, const std::string& text);
  // Writes the stored texts to the file.
  void Flush();

  QSettings settings;
};
