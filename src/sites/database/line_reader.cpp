#include "sites/database/line_reader.h"

#include <cstring>
#include <memory>

namespace {

// The sizes of the parts of the buffer: the unfinished line of the last block, then a block of the
// file, which starts at a memory page. kBlockPadding follows.
constexpr std::size_t kLongestCarry = kLongestLine + 1;
constexpr std::size_t kReadSize = std::size_t{1} << 18;
constexpr std::size_t kPageSize = 4096;

std::string_view Unread(const DatabaseHandle& database) {
  return {database.buffer.data() + database.cursor, database.limit - database.cursor};
}

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
  for (;;) {
    if (database.skipLineFeed && database.cursor < database.limit) {
      database.skipLineFeed = false;
      if (database.buffer[database.cursor] == '\n') ++database.cursor;
    }
    line = Unread(database);
    if (const std::size_t length = line.find('\r'); length != std::string_view::npos) {
      line = line.substr(0, length);
      database.cursor += length + 1;
      database.skipLineFeed = true;
      if (!tooLong && length <= kLongestLine) return true;
      tooLong = false;
    } else {
      tooLong = tooLong || line.size() > kLongestLine;
      if (tooLong) database.cursor = database.limit;
      if (!ReadBlock(database)) break;
    }
  }
  // The last line may have no line end.
  line = Unread(database);
  database.cursor = database.limit;
  return !line.empty() && !database.failed;
}

void CloseDatabase(Workspace& w) {
  w.database.file.reset();
  w.database.cursor = w.database.limit = w.database.readStart;
  w.database.skipLineFeed = w.database.failed = false;
}

void ReportMissingDatabase(Workspace& w) {
  w.platform.MsgBox("Site datbase not found");
}
