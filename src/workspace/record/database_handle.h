// The open site database: the file and the bytes read from it so far. The procedures are in
// sites/database/line_reader.h.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "platform/platform.h"

// Closed at first. The unread bytes are buffer[cursor, limit).
struct DatabaseHandle {
  std::unique_ptr<InputFile> file;
  std::vector<char> buffer;
  std::size_t readStart = 0;  // where each block of the file is read to
  std::size_t cursor = 0;
  std::size_t limit = 0;
  bool skipLineFeed = false;  // the last line ended in CR; skip a following LF
  bool failed = false;        // a read failed
};
