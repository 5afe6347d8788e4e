// Starts other programs.
#pragma once

#include <functional>
#include <string>

#include "platform/platform.h"

// Starts the program of a command line from the logic, "Notepad.exe PATH" or
// "cmd /c  start PATH-OR-ADDRESS", and returns at once. False if it cannot be started.
// On Linux passes the path or address, as one argument and without a shell, to xdg-open, which
// starts the desktop's default viewer for it; if xdg-open fails, calls `onFailure` on the event
// loop. On Windows starts the command line as it is and never calls `onFailure`.
[[nodiscard]] bool StartProgram(const std::string& command, WindowStyle style,
                                const std::function<void()>& onFailure);
