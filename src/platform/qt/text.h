// The one place where texts cross between the logic and Qt.
#pragma once

#include <QString>
#include <string>

QString ToQt(const std::string& text);

// Characters that the single-byte set lacks take their nearest form, else "?".
std::string FromQt(const QString& text);
