// Finds files by the paths that users write.
//
// On Linux a path with a drive letter, such as c:\geog\Sites.dat, names a file in the user's drive
// folder, tarnwick/drive_c in the user's data folder. If it does not exist there, the program reads
// it from an installed drive folder: ../share/tarnwick/drive_c from the folder of the program, then
// tarnwick/drive_c in the folders of XDG_DATA_DIRS. On Windows, if a file does not exist on drive
// c:, the program reads it from its own folder: geog\Sites.dat beside tarnwick.exe instead of
// c:\geog\Sites.dat.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

// Creates the folder c:\geog in the user's drive folder, where the database and the listing are by
// default. Ignores failures. Does nothing on Windows.
void CreateUserFolder();

// Returns the path that a user means by a typed or pasted text: removes blanks and a pair of quotes
// around it, decodes a file:// address, and replaces a leading ~/ by the user's home folder.
std::string CleanPath(const std::string& path);

// Applies CleanPath and returns the files that the path may name: the user's own, then the
// installed ones.
std::vector<std::filesystem::path> PlacesOf(const std::string& path);

// Returns the file to create or to replace; never an installed one.
std::filesystem::path PathToWrite(const std::string& path);

// Returns the file to read: the first of PlacesOf that exists; the user's own if none does.
std::filesystem::path PathToRead(const std::string& path);
