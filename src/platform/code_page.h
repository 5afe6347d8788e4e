// Between the single-byte texts of the logic (Windows-1252) and UTF-8.
#pragma once

#include <string>
#include <string_view>

// The five codes that the set leaves open stand for the control characters of the same number.
std::string ToUtf8(std::string_view singleByte);

// A character that the set lacks takes its nearest ASCII form (prime signs ' and ", minus sign -,
// other blanks a blank), else "?". So does a piece that is no UTF-8.
std::string FromUtf8(std::string_view utf8);
