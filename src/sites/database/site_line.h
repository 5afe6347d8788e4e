// One line of the site database, "name~position~remarks". docs/file-formats.md describes the format
// to users.
#pragma once

#include <string_view>

// The parts of a line; the views are valid as long as the line.
struct SiteLine {
  bool isRecord = false;      // the line contains a "~"
  std::string_view name;      // before the first "~", may be empty
  std::string_view position;  // after it, up to the second "~" if there is one; not yet upper case
};
// Splits a line; a line without a "~" has neither name nor position.
SiteLine SplitSiteLine(std::string_view line);

// Whether the line contains "ENDENDEND", in capitals: the end marker, which follows the last site.
bool HasEndMarker(std::string_view line);
