// Characters and their capitals. Texts are single-byte (Windows-1252), so an index counts
// characters.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

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
  return kCapitals[static_cast<unsigned char>(character)];
}
inline std::string UpperOf(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = UpperOf(c);
  return upper;
}

// Whether a character is one of 0 to 9, whatever the locale.
constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Returns the character with a code; codes below 0 count as 0, codes above 255 as 255.
inline char CharOf(int code) {
  return static_cast<char>(static_cast<unsigned char>(std::clamp(code, 0, 255)));
}
