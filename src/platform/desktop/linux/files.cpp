#include "platform/desktop/files.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <algorithm>
#include <system_error>
#include <vector>

#include "platform/desktop/clean_path.h"
#include "platform/drive_paths.h"

namespace {

namespace fs = std::filesystem;

fs::path DriveFolderIn(const QString& dataFolder) {
  return fs::path(dataFolder.toStdString()) / "tarnwick" / "drive_c";
}

fs::path UserDriveFolder() {
  return DriveFolderIn(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
}

// The user's own folder, then the installed ones.
std::vector<fs::path> DriveFolders() {
  std::vector<fs::path> folders = {
      UserDriveFolder(), DriveFolderIn(QCoreApplication::applicationDirPath() + "/../share")};
  for (const QString& data :
       QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation).mid(1))
    folders.push_back(DriveFolderIn(data));
  return folders;
}

}  // namespace

void CreateUserFolder() {
  std::error_code error;
  fs::create_directories(UserDriveFolder() / "geog", error);
}

fs::path PathToWrite(const std::string& path) {
  return NativePath(UserDriveFolder(), CleanPath(path));
}

fs::path PathToRead(const std::string& path) {
  const std::string clean = CleanPath(path);
  for (const fs::path& folder : DriveFolders()) {
    std::error_code error;
    fs::path file = NativePath(folder, clean);
    if (!HasDrive(clean) || fs::exists(file, error)) return file;
  }
  return NativePath(UserDriveFolder(), clean);
}

bool FileExists(const std::string& pattern) {
  const std::vector<fs::path> folders = DriveFolders();
  return std::any_of(folders.begin(), folders.end(), [&](const fs::path& folder) {
    return FileMatches(folder, CleanPath(pattern));
  });
}
