#include "platform/drive_paths.h"

#include <algorithm>
#include <string_view>
#include <system_error>

#include "platform/code_page.h"
#include "workspace/values/strings.h"

namespace {

namespace fs = std::filesystem;

// Longer than the paths of any file system; a longer path names no file.
constexpr std::size_t kLongestPath = 4096;

bool SameWithoutCase(const fs::path& a, const fs::path& b) {
  return UpperOf(TextOf(a)) == UpperOf(TextOf(b));
}

// The entry of a folder with this name, exactly or without regard to case; the name as written if
// there is none.
fs::path EntryOf(const fs::path& folder, const fs::path& name) {
  std::error_code error;
  if (fs::exists(folder / name, error)) return folder / name;
  fs::directory_iterator at(folder, error);
  for (; !error && at != fs::directory_iterator(); at.increment(error))
    if (SameWithoutCase(at->path().filename(), name)) return at->path();
  return folder / name;
}

}  // namespace

fs::path SystemPath(std::string_view path) {
  const std::string utf8 = ToUtf8(path);
  return std::u8string(utf8.begin(), utf8.end());
}

std::string TextOf(const fs::path& path) {
  const std::u8string utf8 = path.u8string();
  return FromUtf8(std::string(utf8.begin(), utf8.end()));
}

bool HasDrive(std::string_view path) {
  const char letter = path.empty() ? '\0' : UpperOf(path[0]);
  return path.size() >= 2 && path[1] == ':' && letter >= 'A' && letter <= 'Z';
}

fs::path NativePath(const fs::path& driveC, const std::string& path) {
  if (!HasDrive(path)) return SystemPath(path);
  const char letter = UpperOf(path[0]);
  fs::path native = driveC;
  if (letter != 'C')
    native.replace_filename("drive_" + std::string(1, static_cast<char>(letter | 0x20)));
  if (path.size() > kLongestPath) return native / "too long";
  for (std::size_t at = 2; at < path.size();) {
    const std::size_t end = std::min(path.find_first_of("\\/", at), path.size());
    if (end > at) native = EntryOf(native, SystemPath(std::string_view(path).substr(at, end - at)));
    at = end + 1;
  }
  return native;
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  std::size_t n = 0;
  std::size_t p = 0;
  std::size_t lastStar = std::string_view::npos;
  std::size_t starEnd = 0;  // the last * matches the characters of the name up to here
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      lastStar = p++;
      starEnd = n;
    } else if (p < pattern.size() &&
               (pattern[p] == '?' || UpperOf(pattern[p]) == UpperOf(name[n]))) {
      ++p;
      ++n;
    } else if (lastStar != std::string_view::npos) {
      p = lastStar + 1;
      n = ++starEnd;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

bool FileMatches(const fs::path& driveC, const std::string& pattern) {
  std::error_code error;
  if (pattern.find_first_of("*?") == std::string::npos)
    return fs::is_regular_file(NativePath(driveC, pattern), error);
  const std::size_t last = pattern.find_last_of(HasDrive(pattern) ? "\\/:" : "/");
  const std::size_t nameAt = last == std::string::npos ? 0 : last + 1;
  const std::string name = pattern.substr(nameAt);
  const std::string folder = nameAt == 0 ? "." : pattern.substr(0, nameAt);
  fs::directory_iterator at(NativePath(driveC, folder), error);
  for (; !error && at != fs::directory_iterator(); at.increment(error)) {
    std::error_code unreadable;
    if (MatchesPattern(TextOf(at->path().filename()), name) && at->is_regular_file(unreadable))
      return true;
  }
  return false;
}
