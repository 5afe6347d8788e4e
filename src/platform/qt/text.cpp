#include "platform/qt/text.h"

#include "platform/single_byte.h"

QString ToQt(const std::string& text) {
  return QString::fromStdString(ToUtf8(text));
}

std::string FromQt(const QString& text) {
  return FromUtf8(text.toStdString());
}
