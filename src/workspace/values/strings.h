// How texts are cut and searched. Texts are single-byte (Windows-1252), so a position counts
// characters; positions count from 1, and 0 means absent. Nothing here fails.
#pragma once

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

// The text with every letter raised that has a capital in Windows-1252. The length never changes.
std::string UpperOf(std::string_view text);
// The same for one character.
char UpperOf(char character);

// 0 to 9, without regard to the locale.
constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Code, 0 to 255, of the first character; 0 for an empty text.
std::int16_t CodeOf(std::string_view text);

// One character; codes below 0 count as 0, codes above 255 as 255.
std::string CharOf(int code);

// `count` blanks; none for a count below 1.
std::string Blanks(int count);
