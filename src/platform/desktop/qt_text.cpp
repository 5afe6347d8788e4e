#include "platform/desktop/qt_text.h"

#include "platform/code_page.h"

QString ToQt(std::string_view text) {
  return QString::fromStdString(ToUtf8(text));
}

std::string FromQt(const QString& text) {
  return FromUtf8(text.toStdString());
}
