// What the logic asks of the outside. A call that can fail says so by its result; no call throws.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>

// The program's windows by the names of their records.
enum class WindowName { Tarnwick, BearingCalc, ShowList, SetUpCom };

// How Shell shows the program it starts.
enum class WindowStyle { Normal, MinimisedWithFocus };

// The serial control: one port with 8 data bits, no parity, 1 stop bit, no handshake.
// It raises MSComm1_OnComm between two commands whenever as many characters wait as its threshold
// says; while they still do after the handler, it raises it again.
struct SerialControl {
  virtual ~SerialControl() = default;

  // Chooses the port; false if the number can't name one.
  [[nodiscard]] virtual bool SetCommPort(std::int16_t number) = 0;
  // As many characters wait at most.
  virtual void SetInBufferSize(int characters) = 0;
  // Speed, parity, data bits and stop bits, such as "4800,n,8,1"; false if malformed.
  [[nodiscard]] virtual bool SetSettings(const std::string& settings) = 0;
  // With 0 nothing is raised.
  virtual void SetRThreshold(int characters) = 0;
  // False if there is no such port or another program holds it.
  [[nodiscard]] virtual bool Open() = 0;
  virtual void Close() = 0;  // harmless if closed
  [[nodiscard]] virtual bool IsOpen() const = 0;
  // The characters in the receive buffer, which is empty afterwards.
  virtual std::string Input() = 0;
};

// Everything that a run asks of the outside.
struct Platform {
  virtual ~Platform() = default;

  // A stored text, or `otherwise` if there is none. Section and key names compare without case.
  virtual std::string ReadSetting(const std::string& section, const std::string& key,
                                  const std::string& otherwise) = 0;
  // A store that can't be written keeps what it had.
  virtual void StoreSetting(const std::string& section, const std::string& key,
                            const std::string& text) = 0;

  // Whether a file, not a folder, matches a path whose last part may hold * and ?.
  virtual bool FileExists(const std::string& pattern) = 0;
  // Where a path as the user writes it lies in the file system.
  virtual std::filesystem::path NativePath(const std::string& path) = 0;

  // Shows a message with an OK button and the program's title; returns when it is dismissed.
  virtual void MsgBox(const std::string& text) = 0;
  // Starts a program from a command line and returns at once; false if it can't be started.
  [[nodiscard]] virtual bool Shell(const std::string& command, WindowStyle style) = 0;
  // Brings a window to the front with the input focus.
  virtual void SetFocus(WindowName window) = 0;

  // The date in the user's time zone.
  virtual std::chrono::year_month_day Today() = 0;

  // The one serial control of the run.
  virtual SerialControl& Serial() = 0;
};
