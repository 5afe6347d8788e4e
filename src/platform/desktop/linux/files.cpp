#include "platform/desktop/files.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <system_error>

#include "platform/drive_paths.h"

void CreateUserFolder() {
  std::error_code error;
  std::filesystem::create_directories(PathToWrite("c:\\geog"), error);
}

std::vector<std::filesystem::path> PlacesOf(const std::string& path) {
  QStringList dataFolders =
      QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);  // the user's first
  dataFolders.insert(1, QCoreApplication::applicationDirPath() + "/../share");
  std::vector<std::filesystem::path> places;
  for (const QString& data : dataFolders)
    places.push_back(NativePath(data.toStdString() + "/tarnwick/drive_c", CleanPath(path)));
  return places;
}
