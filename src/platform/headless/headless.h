// A complete platform without windows, which records the messages and programs that a run asks for.
// Tests, fuzz targets and the journey driver run the program's real procedures on it.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/disk_platform.h"

// Makes one call fail. Calls are numbered from 1 in the order in which the program makes them: to
// open, read, write or close a file, read or store a setting, open a port, start a program.
struct FaultInjection {
  int calls = 0;         // made so far
  int failAt = 0;        // number of the call that fails; 0 for none
  std::string failed{};  // name of the call that failed

  // Counts a call and returns whether it must fail.
  bool Fails(const char* call) {
    if (++calls != failAt) return false;
    failed = call;
    return true;
  }
};

// A serial control without a device; Feed supplies its characters.
struct HeadlessSerial : SerialControl {
  explicit HeadlessSerial(FaultInjection& faultsOfPlatform) : faults(faultsOfPlatform) {}

  std::set<int> ports;           // ports that can be opened
  std::function<void()> onComm;  // the program's handler of the serial event

  FaultInjection& faults;
  bool open = false;
  int openSpeed = 0;    // baud, of the port that was opened last
  std::string arrived;  // characters that are not yet in the buffer
  std::string buffer;   // receive buffer

  bool Open(int port, int speed) override {
    if (faults.Fails("Open") || open || ports.count(port) == 0) return false;
    openSpeed = speed;
    open = true;
    return true;
  }
  void Close() override {
    open = false;
    arrived.clear();
    buffer.clear();
  }
  bool IsOpen() const override { return open; }
  std::string Input() override { return std::exchange(buffer, {}); }
};

// Orders paths, and names of settings, without regard to case; / equals \.
struct PathOrder {
  bool operator()(const std::string& a, const std::string& b) const;
};

// File contents by path, as the user writes the path. There are no folders: any path names a file,
// unless it is empty or ends in a separator. Reading a file fails after it has been erased.
using MemoryFiles = std::map<std::string, std::string, PathOrder>;

struct HeadlessPlatform : DiskPlatform {
  HeadlessPlatform() = default;
  HeadlessPlatform(const HeadlessPlatform&) = delete;
  HeadlessPlatform& operator=(const HeadlessPlatform&) = delete;

  struct Setting {
    std::string section, key, text;
  };

  std::optional<MemoryFiles> files;                    // if set, replaces the real files
  std::filesystem::path driveC;                        // real folder that represents drive c:
  std::map<std::string, Setting, PathOrder> settings;  // by SECTION/KEY
  std::vector<std::string> events;  // "MsgBox TEXT" and "Shell COMMAND" in their order
  std::chrono::year_month_day today{
      std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now())};
  FaultInjection faults;
  HeadlessSerial serial{faults};

  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& otherwise) override {
    const auto at = settings.find(section + "/" + key);
    return faults.Fails("ReadSetting") || at == settings.end() ? otherwise : at->second.text;
  }
  void StoreSetting(const std::string& section, const std::string& key,
                    const std::string& text) override {
    if (!faults.Fails("StoreSetting")) settings[section + "/" + key] = {section, key, text};
  }
  std::vector<std::filesystem::path> CandidatePaths(const std::string& path) const override {
    return {NativePath(driveC, path)};
  }
  bool ContainsFile(const std::string& folder, std::string_view ending) override;
  std::unique_ptr<File> OpenToRead(const std::string& path) override;
  std::unique_ptr<File> OpenToWrite(const std::string& path) override;
  bool IsSameFile(const std::string& path, const std::string& other) override;
  void MsgBox(const std::string& text) override { events.push_back("MsgBox " + text); }
  bool Shell(const std::string& command, WindowStyle /*style*/) override {
    events.push_back("Shell " + command);
    return !faults.Fails("Shell");
  }
  void SetFocus(WindowName /*window*/) override {}
  std::chrono::year_month_day Today() override { return today; }
  SerialControl& Serial() override { return serial; }
};

// Delivers characters to the open port, all at once, and runs the handler for each event that they
// cause. A closed port loses them.
void Feed(HeadlessSerial& serial, const std::string& characters);
