#include "platform/desktop/clean_path.h"

#include <QDir>
#include <QUrl>

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
