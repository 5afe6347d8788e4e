// Opens a file by its path in the file system, as fopen does; on Windows the path's letters may be
// any, where fopen would know those of the user's code page alone.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>

inline std::FILE* OpenFile(const std::filesystem::path& path, const std::string& mode) {
#ifdef _WIN32
  return _wfopen(path.c_str(), std::wstring(mode.begin(), mode.end()).c_str());
#else
  return std::fopen(path.c_str(), mode.c_str());
#endif
}
