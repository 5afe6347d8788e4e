// Converts texts and colours between the logic and Qt.
#pragma once

#include <QColor>
#include <QString>
#include <string>
#include <string_view>

#include "workspace/record/window_state.h"

// A text of the logic as Qt shows it.
QString ToQt(std::string_view text);

// The text as single-byte characters; those outside the set become their nearest form, else "?".
std::string FromQt(const QString& text);

// A colour of the record as Qt shows it.
inline QColor ToQt(const Rgb& colour) {
  return {colour.red, colour.green, colour.blue};
}
