#include "platform/qt/text.h"

#include "platform/single_byte.h"

QString ToQt(std::string_view text) {
  return QString::fromStdString(ToUtf8(text));
}

std::string FromQt(const QString& text) {
  return FromUtf8(text.toStdString());
}
