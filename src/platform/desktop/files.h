// Finds files by the paths that users write.
//
// On Linux a path with a drive letter, such as c:\geog\Sites.dat, names a file in the user's drive
// folder, tarnwick/drive_c in the user's data folder. What is missing there is read from the
// installed drive folder: share/tarnwick/drive_c beside the folder of the program, then in the
// folders of XDG_DATA_DIRS. On Windows what is missing on drive c: is read from the folder of the
// program, so c:\geog\Sites.dat from geog\Sites.dat beside tarnwick.exe.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

// Creates the folder c:\geog of the user's drive folder, where the database and the listing are by
// default. Does nothing on Windows; a failure is ignored.
void CreateUserFolder();

// What a user means by a path that was typed or pasted: removes blanks and a pair of quotes around
// it and decodes a file:// address; ~/ becomes the user's home folder.
std::string CleanPath(const std::string& path);

// The files that a path (after CleanPath) may name: the user's own, then the installed ones.
std::vector<std::filesystem::path> PlacesOf(const std::string& path);

// The file to create or to replace; never an installed one.
std::filesystem::path PathToWrite(const std::string& path);

// The file to read: the first of PlacesOf that exists; the user's own if none does.
std::filesystem::path PathToRead(const std::string& path);
