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

std::string UpperOf(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = UpperOf(c);
  return upper;
}

std::string Blanks(int count) {
  return std::string(static_cast<std::size_t>(std::max(count, 0)), ' ');
}

void OverwriteAt(std::string& text, std::size_t at, std::string_view item) {
  if (at < text.size()) item.copy(text.data() + at, text.size() - at);
}
