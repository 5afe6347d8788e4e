#include "sites/database/site_line.h"

#include <algorithm>

SiteLine SplitSiteLine(std::string_view line) {
  const std::size_t first = line.find('~');
  if (first == std::string_view::npos) return {};
  const std::size_t second = std::min(line.find('~', first + 1), line.size());
  return {true, line.substr(0, first), line.substr(first + 1, second - first - 1)};
}

// Any nine characters in a row include one at an index of 8 modulo 9, so most lines are cleared by
// looking at every ninth character.
bool HasEndMarker(std::string_view line) {
  bool suspect = false;
  for (std::size_t i = 8; i < line.size(); i += 9)
    suspect |= line[i] == 'E' || line[i] == 'N' || line[i] == 'D';
  return suspect && line.find("ENDENDEND") != std::string_view::npos;
}
