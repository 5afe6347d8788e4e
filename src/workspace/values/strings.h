// Cutting and searching texts. Texts are single-byte (Windows-1252), so a position counts
// characters. Positions count from 1; 0 means absent. Nothing here fails.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

// Returns the length in characters.
int LengthOf(std::string_view text);

// Returns the first `count` characters, or all if there are fewer; nothing for a count below 1.
std::string LeftOf(std::string_view text, int count);

// Returns `count` characters from position `start` on, or fewer if the text ends before. A `start`
// below 1 counts as 1.
std::string MidOf(std::string_view text, int start, int count);
// Returns everything from position `start` on.
std::string MidOf(std::string_view text, int start);

// Returns the position of the first exact occurrence of `sought` at or after `start`; 0 if there is
// none.
int FindIn(int start, std::string_view text, std::string_view sought);

// The capital of each character of Windows-1252, by its code; the character itself if it has none.
inline constexpr std::array<char, 256> kCapitals = [] {
  std::array<char, 256> capitals{};
  for (std::size_t code = 0; code < 256; ++code) {
    std::size_t capital = code;
    if ((code >= 'a' && code <= 'z') || (code >= 0xE0 && code <= 0xFE && code != 0xF7))
      capital = code - 32;  // a to z; a grave to thorn, but not the division sign
    if (code == 0x9A || code == 0x9C || code == 0x9E) capital = code - 16;  // s caron, oe, z caron
    if (code == 0xFF) capital = 0x9F;                                       // y diaeresis
    capitals[code] = static_cast<char>(capital);
  }
  return capitals;
}();

// Return the capital of a character, and a text in capitals, which has the same length.
inline char UpperOf(char character) {
  const auto code = static_cast<unsigned char>(character);
  if (code < 'a') return character;  // digits and capitals, the usual case
  return kCapitals[code];
}
std::string UpperOf(std::string_view text);

// Whether a character is one of 0 to 9, whatever the locale.
constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Returns the character with a code; codes below 0 count as 0, codes above 255 as 255.
inline char CharOf(int code) {
  return static_cast<char>(static_cast<unsigned char>(std::clamp(code, 0, 255)));
}

// Returns `count` blanks; none for a count below 1.
std::string Blanks(int count);

// Writes `item` over the characters of `text` from index `at` on, counted from 0. Characters that
// would lie beyond the end of `text` are dropped.
void OverwriteAt(std::string& text, std::size_t at, std::string_view item);
