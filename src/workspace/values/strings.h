// How texts are cut and searched. Texts are single-byte (Windows-1252), so a position counts
// characters; positions count from 1, and 0 means absent. Nothing here fails.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Length in characters.
int LengthOf(std::string_view text);

// The first `count` characters, or all of them if there are fewer; empty for a count below 1.
std::string LeftOf(std::string_view text, int count);

// `count` characters from position `start`, or fewer if the text ends before; empty from beyond the
// end. A `start` below 1 counts as 1.
std::string MidOf(std::string_view text, int start, int count);
// Everything from position `start` on.
std::string MidOf(std::string_view text, int start);

// Position of the first exact occurrence of `sought` at or after `start`; 0 if there is none.
int FindIn(int start, std::string_view text, std::string_view sought);

// The capital of each character in Windows-1252, by its code; the character itself if it has none.
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

// The capital of a character, and the text in capitals, which has the same length.
inline char UpperOf(char character) {
  const auto code = static_cast<unsigned char>(character);
  if (code < 'a') return character;  // digits and capitals, the usual case
  return kCapitals[code];
}
std::string UpperOf(std::string_view text);

// 0 to 9, without regard to the locale.
constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Code, 0 to 255, of the first character; 0 for an empty text.
std::int16_t CodeOf(std::string_view text);

// One character; codes below 0 count as 0, codes above 255 as 255.
inline char CharFromCode(int code) {
  return static_cast<char>(static_cast<unsigned char>(std::clamp(code, 0, 255)));
}
std::string CharOf(int code);

// `count` blanks; none for a count below 1.
std::string Blanks(int count);

// Writes `item` over the characters of `text` from index `at` on, counted from 0; what would lie
// beyond the end of `text` is left out.
void OverwriteAt(std::string& text, std::size_t at, std::string_view item);
