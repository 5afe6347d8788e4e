// The interface through which the logic uses the operating system. A call whose failure matters
// reports it in its result; no call throws.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

// The program's windows, named like their records in the Workspace.
enum class WindowName { Tarnwick, BearingCalc, ShowList, SetUpCom };

// How Shell shows the program it starts.
enum class WindowStyle { Normal, MinimisedWithFocus };

// A file open for reading or for writing; its destructor closes it and ignores failures.
struct File {
  virtual ~File() = default;

  // Reads up to `size` bytes into `to` and returns their number; 0 at the end of the file, no value
  // if reading fails.
  [[nodiscard]] virtual std::optional<std::size_t> Read(char* to, std::size_t size) = 0;
  // Appends the bytes; false if not all of them could be written.
  [[nodiscard]] virtual bool Write(std::string_view bytes) = 0;
  // Closes the file; false if written bytes may be lost. It must be the last call on a file.
  [[nodiscard]] virtual bool Close() = 0;
};

// The serial control: one port with 8 data bits, no parity, 1 stop bit, no handshake. Between two
// commands it runs the program's OnComm handler whenever its receive buffer (receive_buffer.h) has
// an event due.
struct SerialControl {
  virtual ~SerialControl() = default;

  // Opens a port, numbered from 1, at a speed in baud. False if a port is open already, there is no
  // such port, another program uses it, or it does not support the speed.
  [[nodiscard]] virtual bool Open(int port, int speed) = 0;
  virtual void Close() = 0;  // harmless if closed
  [[nodiscard]] virtual bool IsOpen() const = 0;
  // Returns the characters in the receive buffer and empties it.
  virtual std::string Input() = 0;
};

// The services of the operating system. Paths are written as the user writes them, drive letters
// included.
struct Platform {
  virtual ~Platform() = default;

  // Returns a stored text, or `otherwise` if there is none. Section and key names ignore case.
  virtual std::string ReadSetting(const std::string& section, const std::string& key,
                                  const std::string& otherwise) = 0;
  // Stores a text. If the store cannot be written, it keeps its old contents.
  virtual void StoreSetting(const std::string& section, const std::string& key,
                            const std::string& text) = 0;

  // Whether a folder contains a file whose name ends in `ending`, such as ".jpg"; the case of
  // letters makes no difference.
  virtual bool ContainsFile(const std::string& folder, std::string_view ending) = 0;
  // Opens a file for reading; null if it is missing, unreadable or not a regular file.
  [[nodiscard]] virtual std::unique_ptr<File> OpenToRead(const std::string& path) = 0;
  // Creates or empties a file for writing; null if that fails or could block, as a pipe would.
  [[nodiscard]] virtual std::unique_ptr<File> OpenToWrite(const std::string& path) = 0;
  // Whether two paths lead to the same existing file.
  virtual bool IsSameFile(const std::string& path, const std::string& other) = 0;

  // Shows a message with an OK button and the program's title; returns when it is dismissed.
  virtual void MsgBox(const std::string& text) = 0;
  // Starts a program from a command line and returns at once; false if it cannot be started.
  [[nodiscard]] virtual bool Shell(const std::string& command, WindowStyle style) = 0;
  // Brings a window to the front with the input focus.
  virtual void SetFocus(WindowName window) = 0;

  // Returns the date in the user's time zone.
  virtual std::chrono::year_month_day Today() = 0;

  // The one serial control of the run.
  virtual SerialControl& Serial() = 0;
};
