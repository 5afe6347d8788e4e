// Paths with a drive letter on a system without drives: c:\geog\Sites.dat lies in a folder that
// stands for the drive, and there, as on a drive, the case of letters makes no difference.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// A path of the system in single-byte text, and the other way round.
std::filesystem::path SystemPath(std::string_view path);
std::string TextOf(const std::filesystem::path& path);

// Where a path as the user writes it lies. A path without a drive letter is the system's own and
// used as it is. A part that is not there, such as the name of a file to be made, is taken as
// written.
// In  driveC  the folder that stands for drive c:; drive_d and so on are its sisters
//     path    single-byte text
std::filesystem::path NativePath(const std::filesystem::path& driveC, const std::string& path);

// Whether a regular file matches a path whose last part may hold * and ?; those compare without
// case.
bool FileMatches(const std::filesystem::path& driveC, const std::string& pattern);
