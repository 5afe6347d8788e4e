// The platform of the running program: settings, files, viewers, the message box, the serial port.
// The members that differ between systems are in linux/ and windows/.
#pragma once

#include <QSettings>
#include <functional>

#include "platform/desktop/serial_port.h"
#include "platform/disk_platform.h"

// Returns the path that a user means by a typed or pasted text: removes blanks and a pair of quotes
// around it, decodes a file:// address, and replaces a leading ~/ by the user's home folder.
std::string CleanPath(const std::string& path);

// On Linux the settings are in a file in the user's configuration folder. A save replaces the whole
// file, so that after a crash it contains either the old or the new values. From a damaged file the
// program reads the values that are readable. On Windows the settings are in the registry, under
// HKEY_CURRENT_USER\Software\Tarnwick with a key for each section. A save keeps what another
// running copy of the program has stored meanwhile.
//
// On Linux a path with a drive letter, such as c:\geog\Sites.dat, names a file in the user's drive
// folder, tarnwick/drive_c in the user's data folder. If it does not exist there, the program reads
// it from an installed drive folder: ../share/tarnwick/drive_c from the folder of the program, then
// tarnwick/drive_c in the folders of XDG_DATA_DIRS. On Windows, if a file does not exist on drive
// c:, the program reads it from its own folder: geog\Sites.dat beside tarnwick.exe instead of
// c:\geog\Sites.dat.
struct Desktop : DiskPlatform {
  Desktop();

  // Updates the windows; called before a message box opens.
  std::function<void()> showRecord = [] {};
  // Brings a window to the front.
  std::function<void(WindowName)> focusWindow = [](WindowName) {};
  // Handles the failure of a text viewer that had started. Returns whether the program handled the
  // event; while a command runs it cannot, and the event is raised again later.
  std::function<bool()> onViewerFailure;

  // Writes the stored settings to the file.
  void FlushSettings();

  SerialPort serial;

  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& otherwise) override;
  void StoreSetting(const std::string& section, const std::string& key,
                    const std::string& text) override;
  std::vector<std::filesystem::path> CandidatePaths(const std::string& path) const override;
  void MsgBox(const std::string& text) override;
  bool Shell(const std::string& command, WindowStyle style) override;
  void SetFocus(WindowName window) override { focusWindow(window); }
  std::chrono::year_month_day Today() override;
  SerialControl& Serial() override { return serial; }

 private:
  void ReportViewerFailure();
  QString SettingName(const std::string& section, const std::string& key) const;

  QSettings settings_;
};
