// Converts between the logic's single-byte text (Windows-1252) and UTF-8.
#pragma once

#include <string>
#include <string_view>

// The five codes that Windows-1252 does not define become the control characters with the same
// number.
std::string ToUtf8(std::string_view singleByte);

// Replaces a character that Windows-1252 lacks by a similar one (prime signs by ' and ", the minus
// sign by -, special blanks by a blank), or by "?" if there is none. Replaces invalid UTF-8 by "?".
std::string FromUtf8(std::string_view utf8);
