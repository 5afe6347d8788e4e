#include "platform/desktop/files.h"

#include <QStandardPaths>
#include <system_error>

#include "platform/drive_paths.h"

namespace {

// The folder that stands for drive c:. In its folder geog database and listing lie unless the user
// says otherwise.
std::filesystem::path DriveC() {
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  std::filesystem::path driveC = std::filesystem::path(data.toStdString()) / "tarnwick" / "drive_c";
  std::error_code error;
  std::filesystem::create_directories(driveC / "geog", error);
  return driveC;
}

}  // namespace

std::filesystem::path NativePath(const std::string& path) {
  return NativePath(DriveC(), path);
}

bool FileExists(const std::string& pattern) {
  return FileMatches(DriveC(), pattern);
}
