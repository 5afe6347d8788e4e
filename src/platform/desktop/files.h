// Finds files by the paths that users write (clean_path.h).
//
// On Linux a path with a drive letter, such as c:\geog\Sites.dat, names a file in the user's drive
// folder, tarnwick/drive_c in the user's data folder. What is missing there is read from the
// installed drive folder: share/tarnwick/drive_c beside the folder of the program, then in the
// folders of XDG_DATA_DIRS. On Windows what is missing on drive c: is read from the folder of the
// program, so c:\geog\Sites.dat from geog\Sites.dat beside tarnwick.exe.
#pragma once

#include <filesystem>
#include <string>

// Creates the folder c:\geog of the user's drive folder, where the database and the listing are by
// default. Does nothing on Windows; a failure is ignored.
void CreateUserFolder();

// The file to create or to replace; never an installed one.
std::filesystem::path PathToWrite(const std::string& path);

// The file to read: the user's own if it exists, else the installed one. The user's path if there
// is neither.
std::filesystem::path PathToRead(const std::string& path);

// Whether a file, not a folder, matches a path whose last part may contain * and ?.
bool FileExists(const std::string& pattern);
