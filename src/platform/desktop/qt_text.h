// The one place where texts and colours cross between the logic and Qt.
#pragma once

#include <QColor>
#include <QString>
#include <string>
#include <string_view>

#include "workspace/record/window_state.h"

// A text of the logic, on screen.
QString ToQt(std::string_view text);

// Characters that the single-byte set lacks take their nearest form, else "?".
std::string FromQt(const QString& text);

// A colour of the record, on screen.
inline QColor ToQt(const Rgb& colour) {
  return {colour.red, colour.green, colour.blue};
}
