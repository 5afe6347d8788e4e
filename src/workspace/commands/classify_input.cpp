#include "workspace/commands/classify_input.h"

#include "workspace/values/number_text.h"
#include "workspace/values/strings.h"

namespace {

constexpr std::size_t kShortestPlace = 5;  // characters

// The character at a position from 0; a NUL, which is neither letter nor digit, behind the end.
char CharacterAt(std::string_view text, std::size_t position) {
  return position < text.size() ? text[position] : '\0';
}

bool IsLetterAt(std::string_view text, std::size_t position) {
  const char character = CharacterAt(text, position);
  return character >= 'A' && character <= 'Z';
}

bool IsDigitAt(std::string_view text, std::size_t position) {
  return IsDigit(CharacterAt(text, position));
}

}  // namespace

void ClassifyInput(std::string& text, InputKind& kind) {
  kind = kSiteName;
  if (text.size() < kShortestPlace) return;
  if (!IsLetterAt(text, 0)) {
    if (TextToNumber(std::string_view(text).substr(0, 4)) > 0) kind = kLatLong;
    return;
  }
  if (!IsLetterAt(text, 1)) return;
  if (!IsDigitAt(text, 2) || !IsDigitAt(text, 3)) return;
  if (text.find(' ') != std::string::npos) std::erase(text, ' ');
  if (IsDigitAt(text, 4) && IsDigitAt(text, 5)) kind = kGridReference;
  if (IsLetterAt(text, 4) && IsLetterAt(text, 5)) kind = kLocator;
}
