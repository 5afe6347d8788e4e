#include "sites/database/site_line.h"

#include <algorithm>

SiteLine SplitSiteLine(std::string_view line) {
  const std::size_t first = line.find('~');
  if (first == std::string_view::npos) return {};
  const std::size_t second = std::min(line.find('~', first + 1), line.size());
  return {true, line.substr(0, first), line.substr(first + 1, second - first - 1)};
}

bool HasEndMarker(std::string_view line) {
  return line.find("ENDENDEND") != std::string_view::npos;
}
