// A complete platform without windows: it remembers what was asked of it. Tests and the journey
// driver run the program's real procedures on it.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/platform.h"

// A serial line that is fed by hand.
struct HeadlessSerial : SerialControl {
  std::set<int> ports;  // those that can be opened
  int port = 0;
  int bufferSize = 128;
  int threshold = 0;
  std::string settings;
  bool open = false;
  std::string waiting;           // characters that arrived and were not yet read
  std::function<void()> onComm;  // the program's handler of the serial event

  bool SetCommPort(std::int16_t number) override;
  void SetInBufferSize(int characters) override { bufferSize = characters; }
  bool SetSettings(const std::string& text) override;
  void SetRThreshold(int characters) override { threshold = characters; }
  bool Open() override;
  void Close() override;
  bool IsOpen() const override { return open; }
  std::string Input() override;
};

// Settings, date and serial line stand in memory; of files there is what lies in driveC.
struct HeadlessPlatform : Platform {
  // Compares names as the settings store does.
  struct WithoutCase {
    bool operator()(const std::string& a, const std::string& b) const;
  };
  struct Setting {
    std::string section, key, text;
  };

  std::filesystem::path driveC;                          // the folder that stands for drive c:
  std::map<std::string, Setting, WithoutCase> settings;  // by section and key
  std::vector<std::string> events;                       // "MsgBox ...", "Shell ..." as they came
  bool startsPrograms = true;                            // false: every Shell fails
  std::chrono::year_month_day today{
      std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now())};
  HeadlessSerial serial;

  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& otherwise) override;
  void StoreSetting(const std::string& section, const std::string& key,
                    const std::string& text) override;
  bool FileExists(const std::string& pattern) override;
  std::unique_ptr<InputFile> OpenToRead(const std::string& path) override;
  std::unique_ptr<OutputFile> OpenToWrite(const std::string& path) override;
  bool IsSameFile(const std::string& path, const std::string& other) override;
  void MsgBox(const std::string& text) override { events.push_back("MsgBox " + text); }
  bool Shell(const std::string& command, WindowStyle style) override;
  void SetFocus(WindowName /*window*/) override {}
  std::chrono::year_month_day Today() override { return today; }
  SerialControl& Serial() override { return serial; }
};

// Characters arrive at the open port, all at once; the program's handler runs as long as the
// threshold of waiting characters is reached. While the port is closed they are lost.
void Feed(HeadlessSerial& serial, const std::string& characters);
