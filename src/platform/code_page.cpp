#include "platform/code_page.h"

#include <algorithm>
#include <array>
#include <bit>
#include <iterator>

namespace {

// Unicode code points of the codes 0x80 to 0x9F. Every other code equals its code point.
constexpr std::array<char16_t, 32> kCodePoints80To9F = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Characters that people paste into coordinates, and the single-byte character that replaces each.
constexpr struct {
  char32_t character;
  char replacement;
} kReplacements[] = {
    {0x02B9, '\''},   {0x02BC, '\''}, {0x02BA, '"'}, {0x2032, '\''}, {0x2033, '"'}, {0x2035, '\''},
    {0x2036, '"'},    {0x2010, '-'},  {0x2011, '-'}, {0x2012, '-'},  {0x2212, '-'}, {0x2002, ' '},
    {0x2003, ' '},    {0x2007, ' '},  {0x2009, ' '}, {0x200A, ' '},  {0x202F, ' '}, {0x3000, ' '},
    {0x02DA, '\xB0'}, {0x2215, '/'},  {0x2044, '/'}, {0xFF0C, ','},  {0xFF0E, '.'},
};

void AppendUtf8(std::string& text, char16_t code) {
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | code >> 6);
    text += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    text += static_cast<char>(0xE0 | code >> 12);
    text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (code & 0x3F));
  }
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
  const auto& codePoints = kCodePoints80To9F;
  const auto* const code = std::find(codePoints.begin(), codePoints.end(), character);
  if (code != codePoints.end()) return static_cast<char>(0x80 + (code - codePoints.begin()));
  const auto* const near =
      std::find_if(std::begin(kReplacements), std::end(kReplacements),
                   [=](const auto& row) { return row.character == character; });
  return near == std::end(kReplacements) ? '?' : near->replacement;
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
