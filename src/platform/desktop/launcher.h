// Starts programs beside this one.
#pragma once

#include <string>

#include "platform/platform.h"

// Carries out a command line of the logic: "Notepad.exe PATH" or "cmd /c  start PATH-OR-ADDRESS".
// Nobody waits for it. False if it can't be started.
// On Linux the path or address goes, as one argument and without a shell, to the desktop's default
// viewer for it; on Windows the command line is started as it stands.
[[nodiscard]] bool StartProgram(const std::string& command, WindowStyle style);
