#include "platform/desktop/files.h"

#include <windows.h>

#include <QCoreApplication>
#include <system_error>

#include "platform/desktop/clean_path.h"
#include "platform/drive_paths.h"

namespace {

namespace fs = std::filesystem;

// For c:\geog\Sites.dat the path of geog\Sites.dat in the folder of the program; empty for a path
// that is not on drive c:.
fs::path InstalledPath(const fs::path& path) {
  if (path.root_name() != L"c:" && path.root_name() != L"C:") return {};
  return fs::path(QCoreApplication::applicationDirPath().toStdWString()) / path.relative_path();
}

bool MatchesFile(const fs::path& pattern) {
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(pattern.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  bool isFile = false;
  do {
    isFile = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
  } while (!isFile && FindNextFileW(search, &found));
  FindClose(search);
  return isFile;
}

}  // namespace

void CreateUserFolder() {}

fs::path PathToWrite(const std::string& path) {
  return SystemPath(CleanPath(path));
}

fs::path PathToRead(const std::string& path) {
  fs::path file = PathToWrite(path);
  const fs::path installed = InstalledPath(file);
  std::error_code error;
  return !installed.empty() && !fs::exists(file, error) && fs::exists(installed, error) ? installed
                                                                                        : file;
}

bool FileExists(const std::string& pattern) {
  const fs::path path = PathToWrite(pattern);
  const fs::path installed = InstalledPath(path);
  return MatchesFile(path) || (!installed.empty() && MatchesFile(installed));
}
