#include "platform/code_page.h"

#include <bit>

namespace {

// Unicode code points of the codes 0x80 to 0x9F. Every other code equals its code point.
constexpr std::u32string_view kCodePoints80To9F =
    U"\u20AC\x81\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\x8D\u017D\x8F"
    U"\x90\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\x9D\u017E\u0178";

// Characters that people paste into coordinates, and the single-byte character that replaces them.
constexpr struct {
  std::u32string_view characters;
  char replacement;
} kReplacements[] = {
    {U"\u02B9\u02BC\u2032\u2035", '\''},
    {U"\u02BA\u2033\u2036", '"'},
    {U"\u2010\u2011\u2012\u2212", '-'},
    {U"\u2002\u2003\u2007\u2009\u200A\u202F\u3000", ' '},
    {U"\u02DA", '\xB0'},
    {U"\u2215\u2044", '/'},
    {U"\uFF0C", ','},
    {U"\uFF0E", '.'},
};

void AppendUtf8(std::string& text, char32_t code) {
  if (code < 0x80) {
    text += static_cast<char>(code);
    return;
  }
  if (code < 0x800) {
    text += static_cast<char>(0xC0 | code >> 6);
  } else {
    text += static_cast<char>(0xE0 | code >> 12);
    text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
  }
  text += static_cast<char>(0x80 | (code & 0x3F));
}

// Removes the first character from `rest` and returns it; returns 0xFFFD for invalid UTF-8.
char32_t TakeCharacter(std::string_view& rest) {
  const auto lead = static_cast<unsigned char>(rest.front());
  rest.remove_prefix(1);
  if (lead < 0x80) return lead;
  if (lead < 0xC2 || lead > 0xF4) return 0xFFFD;
  const int length = std::countl_one(lead);
  char32_t character = lead & (0x7FU >> length);
  for (int i = 1; i < length; ++i) {
    if (rest.empty() || (static_cast<unsigned char>(rest.front()) & 0xC0) != 0x80) return 0xFFFD;
    character = character << 6 | (static_cast<unsigned char>(rest.front()) & 0x3F);
    rest.remove_prefix(1);
  }
  return character;
}

char SingleByte(char32_t character) {
  const bool sameCode = character < 0x80 || (character >= 0xA0 && character <= 0xFF);
  if (sameCode) return static_cast<char>(character);
  const std::size_t code = kCodePoints80To9F.find(character);
  if (code != kCodePoints80To9F.npos) return static_cast<char>(0x80 + code);
  for (const auto& [characters, replacement] : kReplacements)
    if (characters.find(character) != characters.npos) return replacement;
  return '?';
}

}  // namespace

std::string ToUtf8(std::string_view singleByte) {
  std::string text;
  text.reserve(singleByte.size());
  for (const char c : singleByte) {
    const auto code = static_cast<unsigned char>(c);
    AppendUtf8(text, code >= 0x80 && code < 0xA0 ? kCodePoints80To9F[code - 0x80U] : code);
  }
  return text;
}

std::string FromUtf8(std::string_view utf8) {
  std::string text;
  text.reserve(utf8.size());
  while (!utf8.empty()) text += SingleByte(TakeCharacter(utf8));
  return text;
}
