#include "sites/site_database.h"

#include <algorithm>
#include <cstring>

#include "sites/results.h"

namespace {

constexpr std::size_t kReadSize = std::size_t{1} << 18;

unsigned char Code(char c) {
  return static_cast<unsigned char>(c);
}

// Moves what is left to the front of the buffer and reads more behind it; false if nothing came.
bool ReadMore(DatabaseHandle& database) {
  std::vector<char>& buffer = database.buffer;
  const std::size_t left = database.end - database.at;
  std::memmove(buffer.data(), buffer.data() + database.at, left);
  database.at = 0;
  database.end = left;
  const std::size_t got = std::fread(buffer.data() + left, 1, buffer.size() - left, database.file);
  if (got == 0 && std::ferror(database.file) != 0) database.failed = true;
  database.end += got;
  return got > 0;
}

void Close(DatabaseHandle& database) {
  if (database.file != nullptr) std::fclose(database.file);
  database.file = nullptr;
  database.at = database.end = 0;
  database.afterReturn = database.failed = false;
}

bool Open(DatabaseHandle& database, const std::filesystem::path& path) {
  // A device or a pipe could block or never end.
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return false;
  database.file = std::fopen(path.string().c_str(), "rb");
  if (database.file == nullptr) return false;
  std::setvbuf(database.file, nullptr, _IONBF, 0);
  database.buffer.resize(kReadSize);
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

// The search without case skips along the line, where the exact one would stop at every E.
bool HoldsEndMarker(std::string_view line) {
  static const CaseBlindText kAnyCase("ENDENDEND");
  return Matches(line, kAnyCase) && line.find("ENDENDEND") != std::string_view::npos;
}

CaseBlindText::CaseBlindText(std::string_view text) : upper(UpperOf(text)) {
  std::array<std::size_t, 256> byCapital{};
  byCapital.fill(upper.size());
  for (std::size_t i = 0; i + 1 < upper.size(); ++i)
    byCapital[Code(upper[i])] = upper.size() - 1 - i;
  for (std::size_t code = 0; code < shift.size(); ++code) {
    const char capital = UpperOf(static_cast<char>(code));
    shift[code] = byCapital[Code(capital)];
    ends[code] = !upper.empty() && capital == upper.back();
  }
}

bool Matches(std::string_view line, const CaseBlindText& sought) {
  const std::string& upper = sought.upper;
  const std::size_t length = upper.size();
  if (length == 0) return true;
  for (std::size_t at = 0; at + length <= line.size();) {
    const unsigned char last = Code(line[at + length - 1]);
    if (sought.ends[last] &&
        std::equal(upper.begin(), upper.end() - 1, line.begin() + static_cast<std::ptrdiff_t>(at),
                   [](char u, char c) { return u == UpperOf(c); }))
      return true;
    at += sought.shift[last];
  }
  return false;
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
  std::vector<std::string>& entries = w.ShowList.PR.items;
  while (entries.size() < kMostEntries && ReadLine(w.database, line))
    if (Matches(line, sought)) entries.push_back(LeftOf(line, kEntryLength));
  CloseDatabase(w);
}

void Lookup_Click(Workspace& w) {
  SearchDatabase(w);
}
