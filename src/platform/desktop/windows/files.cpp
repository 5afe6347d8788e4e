#include "platform/desktop/files.h"

#include <windows.h>

#include "platform/drive_paths.h"

std::filesystem::path NativePath(const std::string& path) {
  return SystemPath(path);
}

bool FileExists(const std::string& pattern) {
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(SystemPath(pattern).c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  bool isFile = false;
  do {
    isFile = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
  } while (!isFile && FindNextFileW(search, &found));
  FindClose(search);
  return isFile;
}
