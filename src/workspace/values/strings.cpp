#include "workspace/values/strings.h"

#include <algorithm>

int LengthOf(std::string_view text) {
  return static_cast<int>(text.size());
}

std::string LeftOf(std::string_view text, int count) {
  return std::string(text.substr(0, static_cast<std::size_t>(std::max(count, 0))));
}

std::string MidOf(std::string_view text, int start, int count) {
  const auto from = static_cast<std::size_t>(std::max(start, 1)) - 1;
  if (from >= text.size() || count <= 0) return {};
  return std::string(text.substr(from, static_cast<std::size_t>(count)));
}

std::string MidOf(std::string_view text, int start) {
  return MidOf(text, start, LengthOf(text));
}

int FindIn(int start, std::string_view text, std::string_view sought) {
  const std::size_t at = text.find(sought, static_cast<std::size_t>(std::max(start, 1)) - 1);
  return at == std::string_view::npos ? 0 : static_cast<int>(at) + 1;
}

char UpperOf(char character) {
  const auto code = static_cast<unsigned char>(character);
  if (code >= 'a' && code <= 'z') return static_cast<char>(code - 32);
  switch (code) {
    case 0x9A:  // s caron
    case 0x9C:  // oe
    case 0x9E:  // z caron
      return static_cast<char>(code - 16);
    case 0xFF:  // y diaeresis
      return static_cast<char>(0x9F);
    default:  // a grave to thorn, but for the division sign
      return static_cast<char>(code >= 0xE0 && code <= 0xFE && code != 0xF7 ? code - 32 : code);
  }
}

std::string UpperOf(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = UpperOf(c);
  return upper;
}

std::int16_t CodeOf(std::string_view text) {
  if (text.empty()) return 0;
  return static_cast<unsigned char>(text.front());
}

std::string CharOf(int code) {
  return std::string(1, static_cast<char>(static_cast<unsigned char>(std::clamp(code, 0, 255))));
}

std::string Blanks(int count) {
  return std::string(static_cast<std::size_t>(std::max(count, 0)), ' ');
}
