// Texts of the program, single-byte Windows-1252, as one line of UTF-8.
#pragma once

#include <string>
#include <string_view>

// Returns a text in UTF-8. A backslash and every character that would not be visible is written as
// an escape: \\ \n \r \t or \xNN, a code of the single-byte set.
std::string Escaped(std::string_view text);

// Reverses Escaped. A backslash that begins no escape is an ordinary character.
std::string Unescaped(std::string_view text);
