// The platform of the running program: settings, files, viewers, the message box, the serial port.
#pragma once

#include <QSettings>
#include <functional>

#include "platform/desktop/serial_port.h"
#include "platform/platform.h"

// On Linux the settings are in a file in the user's configuration folder. A save replaces the whole
// file, so that after a crash it contains either the old or the new values. From a damaged file the
// program reads the values that are readable. On Windows the settings are in the registry, under
// HKEY_CURRENT_USER\Software\Tarnwick with a key for each section. A save keeps what another
// running copy of the program has stored meanwhile.
struct Desktop : Platform {
  Desktop();

  // Updates the windows; called before a message box opens.
  std::function<void()> showRecord;
  // Brings a window to the front.
  std::function<void(WindowName)> focusWindow;
  // Handles the failure of a text viewer that had started. Returns whether the program handled the
  // event; it cannot while a command runs, and Recheck then raises the event again.
  std::function<bool()> onViewerFailure;

  // Raises the events that are due, on the event loop. Call it after each command.
  void Recheck();

  // Writes the stored settings to the file.
  void FlushSettings();

  SerialPort serial;

  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& otherwise) override;
  void StoreSetting(const std::string& section, const std::string& key,
                    const std::string& text) override;
  bool ContainsFile(const std::string& folder, std::string_view ending) override;
  std::unique_ptr<File> OpenToRead(const std::string& path) override;
  std::unique_ptr<File> OpenToWrite(const std::string& path) override;
  bool IsSameFile(const std::string& path, const std::string& other) override;
  void MsgBox(const std::string& text) override;
  bool Shell(const std::string& command, WindowStyle style) override;
  void SetFocus(WindowName window) override;
  std::chrono::year_month_day Today() override;
  SerialControl& Serial() override { return serial; }

 private:
  void ReportViewerFailure();

  QString SettingName(const std::string& section, const std::string& key) const;

  QSettings settings_;
  bool isViewerFailureDue_ = false;
};
