// What the logic asks of the system it runs on. A call that can fail reports so by its result; no
// call throws.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

// The program's windows by the names of their records.
enum class WindowName { Tarnwick, BearingCalc, ShowList, SetUpCom };

// How Shell shows the program it starts.
enum class WindowStyle { Normal, MinimisedWithFocus };

// A file open for reading; its destructor closes it.
struct InputFile {
  virtual ~InputFile() = default;

  // Reads up to `size` bytes to `to` and returns their number; 0 at the end of the file, no value
  // if reading fails.
  [[nodiscard]] virtual std::optional<std::size_t> Read(char* to, std::size_t size) = 0;
};

// A file open for writing; its destructor closes it and ignores failures.
struct OutputFile {
  virtual ~OutputFile() = default;

  // Appends the bytes; false if not all of them could be written.
  [[nodiscard]] virtual bool Write(std::string_view bytes) = 0;
  // Closes the file; false if something of it may be lost. The last call on a file.
  [[nodiscard]] virtual bool Close() = 0;
};

// The serial control: one port with 8 data bits, no parity, 1 stop bit, no handshake. Between two
// commands it runs the program's OnComm handler whenever its receive buffer (receive_buffer.h) has
// an event due.
struct SerialControl {
  virtual ~SerialControl() = default;

  // Chooses the port; false if no port can have that number.
  [[nodiscard]] virtual bool SetCommPort(std::int16_t number) = 0;
  // The most characters that the receive buffer contains.
  virtual void SetInBufferSize(int characters) = 0;
  // Speed, parity, data bits and stop bits, such as "4800,n,8,1"; false if malformed
  // (serial_settings.h).
  [[nodiscard]] virtual bool SetSettings(const std::string& settings) = 0;
  // The fewest characters of an event; 0 switches events off.
  virtual void SetRThreshold(int characters) = 0;
  // False if there is no such port or another program uses it.
  [[nodiscard]] virtual bool Open() = 0;
  virtual void Close() = 0;  // harmless if closed
  [[nodiscard]] virtual bool IsOpen() const = 0;
  // Returns the characters in the receive buffer and empties it.
  virtual std::string Input() = 0;
};

// Everything that a run asks of the system. Paths are texts as the user writes them, drive letters
// included.
struct Platform {
  virtual ~Platform() = default;

  // A stored text, or `otherwise` if there is none. Section and key names compare without case.
  virtual std::string ReadSetting(const std::string& section, const std::string& key,
                                  const std::string& otherwise) = 0;
  // Stores a text; a store that cannot be written keeps its old contents.
  virtual void StoreSetting(const std::string& section, const std::string& key,
                            const std::string& text) = 0;

  // Whether a file, not a folder, matches a path whose last part may contain * and ?.
  virtual bool FileExists(const std::string& pattern) = 0;
  // Opens a file for reading; null if it is missing, unreadable or not a regular file.
  [[nodiscard]] virtual std::unique_ptr<InputFile> OpenToRead(const std::string& path) = 0;
  // Creates or empties a file for writing; null if that fails or could block, as a pipe would.
  [[nodiscard]] virtual std::unique_ptr<OutputFile> OpenToWrite(const std::string& path) = 0;
  // Whether two paths lead to the same existing file.
  virtual bool IsSameFile(const std::string& path, const std::string& other) = 0;

  // Shows a message with an OK button and the program's title; returns when it is dismissed.
  virtual void MsgBox(const std::string& text) = 0;
  // Starts a program from a command line and returns at once; false if it cannot be started.
  [[nodiscard]] virtual bool Shell(const std::string& command, WindowStyle style) = 0;
  // Brings a window to the front with the input focus.
  virtual void SetFocus(WindowName window) = 0;

  // The date in the user's time zone.
  virtual std::chrono::year_month_day Today() = 0;

  // The one serial control of the run.
  virtual SerialControl& Serial() = 0;
};
