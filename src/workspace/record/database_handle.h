// The open site database and the part of it that is in memory; sites/database/line_reader.h reads
// it.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "platform/platform.h"

struct DatabaseHandle {
  std::unique_ptr<InputFile> file;  // null: closed
  std::vector<char> buffer;
  std::size_t readStart = 0;  // where in `buffer` each block of the file is stored
  std::size_t cursor = 0;     // the unread bytes are buffer[cursor, limit)
  std::size_t limit = 0;
  bool skipLineFeed = false;  // the last line ended in CR; skip a following LF
  bool failed = false;        // a read failed
};
