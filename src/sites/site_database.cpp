#include "sites/site_database.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "platform/open_file.h"
#include "sites/pass_over.h"
#include "sites/results.h"

namespace {

// The buffer: room for what is carried over, a piece of the file, and what a search by blocks may
// look at behind it.
constexpr std::size_t kCarried = kLongestLine + 1;
constexpr std::size_t kReadSize = std::size_t{1} << 18;
constexpr std::size_t kPage = 4096;

// Reads the next piece to the start of a page, where the system copies fastest, and carries what is
// left of the one before to just in front of it. False if nothing came.
bool ReadMore(DatabaseHandle& database) {
  char* buffer = database.buffer.data();
  const std::size_t left = database.end - database.at;
  std::memmove(buffer + database.piece - left, buffer + database.at, left);
  const std::size_t got = std::fread(buffer + database.piece, 1, kReadSize, database.file);
  if (got == 0 && std::ferror(database.file) != 0) database.failed = true;
  database.at = database.piece - left;
  database.end = database.piece + got;
  return got > 0;
}

void MakeBuffer(DatabaseHandle& database) {
  if (!database.buffer.empty()) return;
  database.buffer.resize(kCarried + kPage + kReadSize + kBlockSlack);
  void* piece = database.buffer.data() + kCarried;
  std::size_t space = kPage + kReadSize;
  piece = std::align(kPage, kReadSize, piece, space);
  database.piece = static_cast<std::size_t>(static_cast<char*>(piece) - database.buffer.data());
}

void Close(DatabaseHandle& database) {
  if (database.file != nullptr) std::fclose(database.file);
  database.file = nullptr;
  database.at = database.end = database.piece;
  database.afterReturn = database.failed = false;
}

bool Open(DatabaseHandle& database, const std::filesystem::path& path) {
  // A device or a pipe could block or never end.
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return false;
  database.file = OpenFile(path, "rb");
  if (database.file == nullptr) return false;
  std::setvbuf(database.file, nullptr, _IONBF, 0);
  MakeBuffer(database);
  ReadMore(database);
  if (!database.failed) return true;
  Close(database);
  return false;
}

}  // namespace

SiteLine SplitSiteLine(std::string_view line) {
  const std::size_t first = line.find('~');
  if (first == std::string_view::npos) return {};
  const std::size_t second = std::min(line.find('~', first + 1), line.size());
  return {true, line.substr(0, first), line.substr(first + 1, second - first - 1)};
}

// The marker is nine characters long, so a look at every ninth clears most lines.
bool HoldsEndMarker(std::string_view line) {
  bool suspect = false;
  for (std::size_t i = 8; i < line.size(); i += 9)
    suspect |= line[i] == 'E' || line[i] == 'N' || line[i] == 'D';
  return suspect && line.find("ENDENDEND") != std::string_view::npos;
}

bool OpenDatabase(Workspace& w) {
  CloseDatabase(w);
  const std::string& path = w.Tarnwick.LocDatabase.text;
  if (w.platform.FileExists(path) && Open(w.database, w.platform.NativePath(path))) return true;
  w.platform.MsgBox("Site datbase not found");
  return false;
}

bool ReadLine(DatabaseHandle& database, std::string_view& line) {
  bool tooLong = false;
  std::size_t searched = 0;  // characters of the line known to hold no return
  for (;;) {
    if (database.afterReturn && database.at < database.end) {
      database.afterReturn = false;
      if (database.buffer[database.at] == '\n') ++database.at;
    }
    const char* from = database.buffer.data() + database.at;
    const std::size_t length = database.end - database.at;
    const void* found =
        length > searched ? std::memchr(from + searched, '\r', length - searched) : nullptr;
    if (found != nullptr) {
      line = {from, static_cast<std::size_t>(static_cast<const char*>(found) - from)};
      database.at += line.size() + 1;
      database.afterReturn = true;
      if (!tooLong && line.size() <= kLongestLine) return true;
      tooLong = false;
      searched = 0;
      continue;
    }
    searched = length;
    if (length > kLongestLine) {
      tooLong = true;
      database.at = database.end;
      searched = 0;
    }
    if (!ReadMore(database)) break;
  }
  // The last line may lack its end.
  line = {database.buffer.data() + database.at, database.end - database.at};
  database.at = database.end;
  return !tooLong && !line.empty() && !database.failed;
}

void CloseDatabase(Workspace& w) {
  Close(w.database);
}

void SearchDatabase(Workspace& w) {
  CloseDatabase(w);
  OpenResults(w);
  if (!OpenDatabase(w)) return;
  const CaseBlindText sought(w.Tarnwick.InputText.text);
  std::string_view line;
  Entries& entries = w.ShowList.PR.items;
  while (entries.size() < kMostEntries) {
    const std::size_t place = PassOverLines(w.database, sought);
    if (!ReadLine(w.database, line)) break;
    const std::string_view rest = line.substr(std::min(place, line.size()));
    if (BeginsWith(rest, sought) || Matches(line, sought))
      entries.Add(line.substr(0, kEntryLength));
  }
  CloseDatabase(w);
}

void Lookup_Click(Workspace& w) {
  SearchDatabase(w);
}
