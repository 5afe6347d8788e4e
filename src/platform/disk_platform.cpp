#include "platform/disk_platform.h"

#include <algorithm>
#include <fstream>
#include <system_error>

#include "platform/code_page.h"
#include "workspace/values/strings.h"

namespace {

namespace fs = std::filesystem;

// Longest path that is looked up, in bytes. No file system supports a longer one.
constexpr std::size_t kLongestPath = 4096;

// Returns the first entry of a folder for which matches(NAME IN UPPER CASE, ENTRY) is true; empty
// if there is none.
fs::path FindEntry(const fs::path& folder, auto&& matches) {
  std::error_code error;
  fs::directory_iterator at(folder, error);
  for (; !error && at != fs::directory_iterator(); at.increment(error)) {
    const std::u8string name = at->path().filename().u8string();
    if (matches(UpperOf(FromUtf8(std::string(name.begin(), name.end()))), *at)) return at->path();
  }
  return {};
}

// Returns the entry of a folder with exactly this name, else the first one that differs from it
// only in case, else the name as written.
fs::path EntryOf(const fs::path& folder, std::string_view name) {
  std::error_code error;
  fs::path entry = folder / SystemPath(name);
  if (fs::exists(entry, error)) return entry;
  const fs::path found = FindEntry(
      folder, [&](const std::string& upper, const auto&) { return upper == UpperOf(name); });
  return found.empty() ? entry : found;
}

struct DiskFile : File {
  std::optional<std::size_t> Read(char* to, std::size_t size) override {
    stream.read(to, static_cast<std::streamsize>(size));
    if (stream.bad()) return {};
    return static_cast<std::size_t>(stream.gcount());
  }
  bool Write(std::string_view bytes) override {
    return !stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).fail();
  }
  bool Close() override { return stream.rdbuf()->close() != nullptr; }

  std::fstream stream;
};

// Opens a file without a buffer, because the logic reads and writes in blocks. Null on failure.
std::unique_ptr<File> Open(const fs::path& path, std::ios::openmode mode) {
  auto file = std::make_unique<DiskFile>();
  file->stream.rdbuf()->pubsetbuf(nullptr, 0);
  file->stream.open(path, mode | std::ios::binary);
  return file->stream.is_open() ? std::move(file) : nullptr;
}

}  // namespace

fs::path SystemPath(std::string_view path) {
  const std::string utf8 = ToUtf8(path);
  return std::u8string(utf8.begin(), utf8.end());
}

fs::path NativePath(const fs::path& driveC, const std::string& path) {
  const char letter = UpperOf(path[0]);
  if (letter < 'A' || letter > 'Z' || path[1] != ':') return SystemPath(path);
  fs::path native = driveC;
  if (letter != 'C')
    native.replace_filename("drive_" + std::string(1, static_cast<char>(letter | 0x20)));
  if (path.size() > kLongestPath) return native / "too long" / "to open";
  for (std::size_t at = 2; at < path.size();) {
    const std::size_t end = std::min(path.find_first_of("\\/", at), path.size());
    if (end > at) native = EntryOf(native, std::string_view(path).substr(at, end - at));
    at = end + 1;
  }
  return native;
}

fs::path DiskPlatform::PathToRead(const std::string& path) const {
  std::error_code error;
  const std::vector<fs::path> candidates = CandidatePaths(path);
  for (const fs::path& candidate : candidates)
    if (fs::exists(candidate, error)) return candidate;
  return candidates.front();
}

bool DiskPlatform::ContainsFile(const std::string& folder, std::string_view ending) {
  const auto isWanted = [&](const std::string& upper, const fs::directory_entry& entry) {
    std::error_code error;
    return upper.ends_with(UpperOf(ending)) && entry.is_regular_file(error);
  };
  for (const fs::path& candidate : CandidatePaths(folder))
    if (!FindEntry(candidate, isWanted).empty()) return true;
  return false;
}

std::unique_ptr<File> DiskPlatform::OpenToRead(const std::string& path) {
  std::error_code error;
  const fs::path file = PathToRead(path);
  return fs::is_regular_file(file, error) ? Open(file, std::ios::in) : nullptr;
}

std::unique_ptr<File> DiskPlatform::OpenToWrite(const std::string& path) {
  std::error_code error;
  const fs::path file = CandidatePaths(path).front();
  return fs::is_fifo(file, error) ? nullptr : Open(file, std::ios::out | std::ios::trunc);
}

bool DiskPlatform::IsSameFile(const std::string& path, const std::string& other) {
  std::error_code error;
  return fs::equivalent(PathToRead(path), PathToRead(other), error);
}
