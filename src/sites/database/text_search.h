// Searches the site database for a text without regard to case.
//
// A line can contain a text only where it contains a certain pair of its characters. The buffer is
// searched for the pair, 64 characters at a time, and only a line with the whole text is read.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "workspace/record/workspace.h"

// Passes where the character c at an index of a text has (c | mask) == expected: one character, or
// a letter in both cases. For some accented letters it matches a few more.
struct CharacterTest {
  std::size_t index;  // 0 to 63
  unsigned char mask, expected;
};
using CharacterPair = std::array<CharacterTest, 2>;

// A text to search for.
struct CaseBlindText {
  explicit CaseBlindText(std::string_view text);
  std::string upper;
  CharacterPair rarest;  // every occurrence passes both tests
};

// Whether the line contains the text, anywhere, "~" included. Every line contains the empty text.
// The kBlockPadding characters after the line must be readable, as they are after ReadLine.
bool Matches(std::string_view line, const CaseBlindText& sought);

// Reads the next line that contains the text, as ReadLine does.
[[nodiscard]] bool ReadMatchingLine(DatabaseHandle& database, const CaseBlindText& sought,
                                    std::string_view& line);

// Moves the cursor past lines that contain a "~" but neither the text nor the end marker. Stops in
// front of the last such line in the buffer, whose name the caller may need.
void SkipNonMatchingSites(DatabaseHandle& database, const CaseBlindText& sought);
