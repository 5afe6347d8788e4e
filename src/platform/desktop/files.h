// Files under their paths as the user writes them.
#pragma once

#include <filesystem>
#include <string>

// Where a path lies in the file system.
std::filesystem::path NativePath(const std::string& path);

// Whether a file, not a folder, matches a path whose last part may hold * and ?.
bool FileExists(const std::string& pattern);
