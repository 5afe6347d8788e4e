#include "platform/desktop/files.h"

#include <QCoreApplication>

#include "platform/drive_paths.h"

void CreateUserFolder() {}

std::vector<std::filesystem::path> PlacesOf(const std::string& path) {
  const std::filesystem::path file = SystemPath(CleanPath(path));
  if (file.root_name() != L"c:" && file.root_name() != L"C:") return {file};
  return {file, QCoreApplication::applicationDirPath().toStdWString() / file.relative_path()};
}
