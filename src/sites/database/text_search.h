// A text to search lines for without regard to case.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

// Characters that give `value` when the bits of `fold` are set: one, or a letter in both cases, and
// for some accented letters a few more.
struct MaskedByte {
  unsigned char fold = 0, value = 0;
};

// Two characters of a text, and how far behind its start they stand, at most kFarthest. As they
// stand here any two will do.
struct CharacterPair {
  static constexpr std::size_t kFarthest = 63;
  MaskedByte first{0xFF, 0xFF}, second{0xFF, 0xFF};
  std::size_t firstAt = 0, secondAt = 0;
};

// The text folded once, with what a search needs to know of it.
struct CaseBlindText {
  explicit CaseBlindText(std::string_view text);
  std::string upper;
  // By the character under the end of the text: how far the text can move on, and whether it could
  // end there.
  std::array<std::size_t, 256> shift{};
  std::array<bool, 256> ends{};
  CharacterPair rarest;  // the text stands nowhere without them
};

// Whether the text stands anywhere in the line, the "~" included. The empty text always does.
bool Matches(std::string_view line, const CaseBlindText& sought);

// Whether the rest of a line begins with the text.
bool BeginsWith(std::string_view rest, const CaseBlindText& sought);
