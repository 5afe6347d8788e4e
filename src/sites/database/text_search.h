// Searches lines for a text without regard to case.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

// Matches a character c where (c | mask) == expected: one character, or a letter in both cases. For
// some accented letters it matches a few more, so a match is checked again.
struct MaskedByte {
  unsigned char mask = 0, expected = 0;
};

// Two characters of a text and their indices in it, at most kFarthest. The initial value matches
// anywhere.
struct CharacterPair {
  static constexpr std::size_t kFarthest = 63;
  MaskedByte first{0xFF, 0xFF}, second{0xFF, 0xFF};
  std::size_t firstAt = 0, secondAt = 0;
};

// A text to search for, with the tables that the search needs.
struct CaseBlindText {
  explicit CaseBlindText(std::string_view text);
  std::string upper;
  // Horspool's tables, indexed by the character of the line that is compared with the last one of
  // the text: how far the search can advance, and whether the text may end at that character.
  std::array<std::size_t, 256> shift{};
  std::array<bool, 256> ends{};
  CharacterPair rarest;  // every occurrence contains it
};

// Whether the line contains the text, anywhere, "~" included. Every line contains the empty text.
bool Matches(std::string_view line, const CaseBlindText& sought);

// Whether the rest of a line begins with the text.
bool BeginsWith(std::string_view rest, const CaseBlindText& sought);
