#include "sites/database/line_reader.h"

#include <cstring>
#include <optional>
#include <utility>

namespace {

constexpr std::size_t kReadSize = std::size_t{1} << 18;

// Index in the buffer of each block of the file; the unfinished line of the last block precedes it.
// The 48 aligns the block to 64 bytes, since a large buffer often starts 16 bytes after a memory
// page; the system copies an eighth faster to such an address.
constexpr std::size_t kReadStart = (std::size_t{1} << 15) + 48;
static_assert(kReadStart > kLongestLine);

std::string_view Unread(const DatabaseHandle& database) {
  return {database.buffer.data() + database.cursor, database.limit - database.cursor};
}

// Reads the next block and moves the unread bytes to just in front of it. False at the end of the
// file and after a read error.
bool ReadBlock(DatabaseHandle& database) {
  char* buffer = database.buffer.data();
  const std::size_t unread = database.limit - database.cursor;
  std::memmove(buffer + kReadStart - unread, buffer + database.cursor, unread);
  const std::optional<std::size_t> count = database.file->Read(buffer + kReadStart, kReadSize);
  if (!count) database.failed = true;
  database.cursor = kReadStart - unread;
  database.limit = kReadStart + count.value_or(0);
  return count.value_or(0) > 0;
}

}  // namespace

bool OpenDatabase(Workspace& w) {
  CloseDatabase(w);
  w.database.file = w.platform.OpenToRead(w.Tarnwick.LocDatabase.text);
  w.database.buffer.resize(kReadStart + kReadSize + kBlockPadding);
  w.database.failed = !w.database.file;
  if (w.database.file) ReadBlock(w.database);
  if (!w.database.failed) return true;
  CloseAndReportFailure(w);
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
  w.database = {.buffer = std::move(w.database.buffer)};
}

void CloseAndReportFailure(Workspace& w) {
  const bool failed = w.database.failed;
  CloseDatabase(w);
  if (failed) w.platform.MsgBox("Site datbase not found");
}
