// Paths with a drive letter on a system without drives: c:\geog\Sites.dat is the file
// geog/Sites.dat in a folder that represents drive c:. Below such a folder the case of letters
// makes no difference.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// Converts single-byte text to a path of the system.
std::filesystem::path SystemPath(std::string_view path);

// Returns the file or folder that a path names. A path without a drive letter is a path of the
// system and is only converted. A part that does not exist, such as the name of a new file, keeps
// its case.
// In  driveC  the folder that represents drive c:; drive_d and so on are beside it
//     path    single-byte text, parts separated by \ or /
std::filesystem::path NativePath(const std::filesystem::path& driveC, const std::string& path);

// Whether a folder contains a regular file whose name ends in `ending`. The case of letters makes
// no difference.
bool ContainsFile(const std::filesystem::path& folder, std::string_view ending);
