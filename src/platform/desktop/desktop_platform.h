// The platform of the running program: settings, files, viewers, the message box, the serial port.
#pragma once

#include <functional>

#include "platform/desktop/serial_port.h"
#include "platform/desktop/settings.h"
#include "platform/platform.h"

struct Desktop : Platform {
  Desktop();

  // Updates the windows; called before a message box opens.
  std::function<void()> showRecord;
  // Brings a window to the front.
  std::function<void(WindowName)> focusWindow;
  // Handles the failure of a text viewer that had started. Returns whether the program could take
  // the event; it cannot while a command runs, and Recheck raises the event again.
  std::function<bool()> onViewerFailure;

  // Has the event loop raise the events that are due. To be called after each command.
  void Recheck();

  SettingsStore settings;
  SerialPort serial;

  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& otherwise) override;
  void StoreSetting(const std::string& section, const std::string& key,
                    const std::string& text) override;
  bool FileExists(const std::string& pattern) override;
  std::unique_ptr<InputFile> OpenToRead(const std::string& path) override;
  std::unique_ptr<OutputFile> OpenToWrite(const std::string& path) override;
  bool IsSameFile(const std::string& path, const std::string& other) override;
  void MsgBox(const std::string& text) override;
  bool Shell(const std::string& command, WindowStyle style) override;
  void SetFocus(WindowName window) override;
  std::chrono::year_month_day Today() override;
  SerialControl& Serial() override { return serial; }

 private:
  void ReportViewerFailure();

  bool isViewerFailureDue_ = false;
};
