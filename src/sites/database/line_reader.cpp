#include "sites/database/line_reader.h"

#include <cstring>
#include <memory>

namespace {

// The sizes of the parts of the buffer: the unfinished line of the last block, then a block of the
// file, which starts at a memory page. kBlockPadding follows.
constexpr std::size_t kLongestCarry = kLongestLine + 1;
constexpr std::size_t kReadSize = std::size_t{1} << 18;
constexpr std::size_t kPageSize = 4096;

// Reads the next block to the start of a memory page, where the system copies fastest, and moves
// the unread bytes to just in front of it. False at the end of the file and after a read error.
bool ReadBlock(DatabaseHandle& database) {
  char* buffer = database.buffer.data();
  const std::size_t unread = database.limit - database.cursor;
  std::memmove(buffer + database.readStart - unread, buffer + database.cursor, unread);
  const std::optional<std::size_t> count =
      database.file->Read(buffer + database.readStart, kReadSize);
  if (!count) database.failed = true;
  database.cursor = database.readStart - unread;
  database.limit = database.readStart + count.value_or(0);
  return count.value_or(0) > 0;
}

void AllocateBuffer(DatabaseHandle& database) {
  if (!database.buffer.empty()) return;
  database.buffer.resize(kLongestCarry + kPageSize + kReadSize + kBlockPadding);
  void* start = database.buffer.data() + kLongestCarry;
  std::size_t space = kPageSize + kReadSize;
  start = std::align(kPageSize, kReadSize, start, space);
  database.readStart = static_cast<std::size_t>(static_cast<char*>(start) - database.buffer.data());
}

}  // namespace

bool OpenDatabase(Workspace& w) {
  CloseDatabase(w);
  w.database.file = w.platform.OpenToRead(w.Tarnwick.LocDatabase.text);
  if (w.database.file) {
    AllocateBuffer(w.database);
    w.database.cursor = w.database.limit = w.database.readStart;
    ReadBlock(w.database);
    if (!w.database.failed) return true;
    CloseDatabase(w);
  }
  ReportMissingDatabase(w);
  return false;
}

bool ReadLine(DatabaseHandle& database, std::string_view& line) {
  bool tooLong = false;
  std::size_t searched = 0;  // characters of the line known to contain no CR
  for (;;) {
    if (database.skipLineFeed && database.cursor < database.limit) {
      database.skipLineFeed = false;
      if (database.buffer[database.cursor] == '\n') ++database.cursor;
    }
    const char* from = database.buffer.data() + database.cursor;
    const std::size_t length = database.limit - database.cursor;
    const void* found =
        length > searched ? std::memchr(from + searched, '\r', length - searched) : nullptr;
    if (found != nullptr) {
      line = {from, static_cast<std::size_t>(static_cast<const char*>(found) - from)};
      database.cursor += line.size() + 1;
      database.skipLineFeed = true;
      if (!tooLong && line.size() <= kLongestLine) return true;
      tooLong = false;
      searched = 0;
      continue;
    }
    searched = length;
    if (length > kLongestLine) {
      tooLong = true;
      database.cursor = database.limit;
      searched = 0;
    }
    if (!ReadBlock(database)) break;
  }
  // The last line may have no line end.
  line = {database.buffer.data() + database.cursor, database.limit - database.cursor};
  database.cursor = database.limit;
  return !tooLong && !line.empty() && !database.failed;
}

void CloseDatabase(Workspace& w) {
  w.database.file.reset();
  w.database.cursor = w.database.limit = w.database.readStart;
  w.database.skipLineFeed = w.database.failed = false;
}

void ReportMissingDatabase(Workspace& w) {
  w.platform.MsgBox("Site datbase not found");
}
