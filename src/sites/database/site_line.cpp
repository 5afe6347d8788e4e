#include "sites/database/site_line.h"

#include <algorithm>
#include <array>

SiteLine SplitSiteLine(std::string_view line) {
  const std::size_t first = line.find('~');
  if (first == std::string_view::npos) return {};
  const std::size_t second = std::min(line.find('~', first + 1), line.size());
  return {true, line.substr(0, first), line.substr(first + 1, second - first - 1)};
}

// A marker of nine characters covers an index of 8 modulo 9, so testing every ninth character
// rules out most lines.
bool HasEndMarker(std::string_view line) {
  static constexpr std::array<bool, 256> kOfMarker = [] {
    std::array<bool, 256> isOfMarker{};
    isOfMarker['E'] = isOfMarker['N'] = isOfMarker['D'] = true;
    return isOfMarker;
  }();
  bool suspect = false;
  for (std::size_t i = 8; i < line.size(); i += 9)
    suspect |= kOfMarker[static_cast<unsigned char>(line[i])];
  return suspect && line.find("ENDENDEND") != std::string_view::npos;
}
