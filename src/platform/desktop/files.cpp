#include "platform/desktop/files.h"

#include <QDir>
#include <QUrl>
#include <system_error>

#include "platform/desktop/qt_text.h"

std::string CleanPath(const std::string& path) {
  QString text = ToQt(path).trimmed();
  for (const QChar quote : {'"', '\''})
    if (text.size() >= 2 && text.startsWith(quote) && text.endsWith(quote))
      text = text.mid(1, text.size() - 2);
  if (text.startsWith("file://", Qt::CaseInsensitive)) text = QUrl(text).toLocalFile();
  if (text.startsWith("~/")) text = QDir::homePath() + text.mid(1);
  return FromQt(text);
}

std::filesystem::path PathToWrite(const std::string& path) {
  return PlacesOf(path).front();
}

std::filesystem::path PathToRead(const std::string& path) {
  std::error_code error;
  for (const std::filesystem::path& place : PlacesOf(path))
    if (std::filesystem::exists(place, error)) return place;
  return PathToWrite(path);
}
