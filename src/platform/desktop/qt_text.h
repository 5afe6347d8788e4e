// Converts texts and colours between the logic and Qt.
#pragma once

#include <QColor>
#include <QString>
#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "workspace/record/controls.h"

// Converts single-byte text of the logic.
inline QString ToQt(std::string_view text) {
  return QString::fromStdString(ToUtf8(text));
}

// Converts to single-byte text; replaces other characters as FromUtf8 does.
inline std::string FromQt(const QString& text) {
  return FromUtf8(text.toStdString());
}

// Converts a colour of the record.
inline QColor ToQt(const Rgb& colour) {
  return {colour.red, colour.green, colour.blue};
}
