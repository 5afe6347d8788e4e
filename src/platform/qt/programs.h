// Starts the desktop's viewers.
#pragma once

#include <filesystem>
#include <string>

// Carries out a command line of the logic: "Notepad.exe PATH" or "cmd /c  start PATH-OR-ADDRESS".
// The path or address goes, as one argument and without a shell, to the desktop's default viewer
// for it; nobody waits for that. False if the viewer can't be started.
// In  driveC  the folder that stands for drive c:
bool StartViewer(const std::filesystem::path& driveC, const std::string& command);
