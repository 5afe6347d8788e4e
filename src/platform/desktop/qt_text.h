// Converts texts and colours between the logic and Qt.
#pragma once

#include <QColor>
#include <QString>
#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "workspace/record/controls.h"

// A text of the logic as Qt shows it.
inline QString ToQt(std::string_view text) {
  return QString::fromStdString(ToUtf8(text));
}

// The text as single-byte characters; those outside the set become their nearest form, else "?".
inline std::string FromQt(const QString& text) {
  return FromUtf8(text.toStdString());
}

// A colour of the record as Qt shows it.
inline QColor ToQt(const Rgb& colour) {
  return {colour.red, colour.green, colour.blue};
}
