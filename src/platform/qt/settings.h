// The per-user settings store: a file in the user's configuration folder. It is replaced as a
// whole, so that a crash leaves the old or the new values; what another running copy stored
// meanwhile is kept; a damaged file gives the values that can be read.
#pragma once

#include <QSettings>
#include <string>

struct SettingsStore {
  SettingsStore();

  std::string Read(const std::string& section, const std::string& key,
                   const std::string& otherwise) const;
  void Store(const std::string& section, const std::string& key, const std::string& text);
  // Writes what was stored.
  void Flush();

  QSettings settings;
};
