#include "platform/headless/memory_files.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "platform/drive_paths.h"
#include "workspace/values/strings.h"

namespace {

// Where the last part of a path begins.
std::size_t NameStart(const std::string& path) {
  const std::size_t separator = path.find_last_of("\\/");
  return separator == std::string::npos ? 0 : separator + 1;
}

bool SamePath(const std::string& a, const std::string& b) {
  const PathOrder isBefore;
  return !isBefore(a, b) && !isBefore(b, a);
}

struct MemoryInput : InputFile {
  MemoryInput(const MemoryFiles& allFiles, std::string pathOfFile)
      : files(allFiles), path(std::move(pathOfFile)) {}

  std::optional<std::size_t> Read(char* to, std::size_t size) override {
    const auto file = files.find(path);
    if (file == files.end()) return {};
    const std::string& content = file->second;
    const std::size_t count = std::min(size, content.size() - std::min(position, content.size()));
    std::memcpy(to, content.data() + position, count);
    position += count;
    return count;
  }

  const MemoryFiles& files;
  const std::string path;
  std::size_t position = 0;
};

struct MemoryOutput : OutputFile {
  MemoryOutput(MemoryFiles& allFiles, std::string pathOfFile)
      : files(allFiles), path(std::move(pathOfFile)) {}

  bool Write(std::string_view bytes) override {
    files[path] += bytes;
    return true;
  }
  bool Close() override { return true; }

  MemoryFiles& files;
  const std::string path;
};

}  // namespace

bool PathOrder::operator()(const std::string& a, const std::string& b) const {
  const auto fold = [](char c) { return c == '/' ? '\\' : UpperOf(c); };
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                      [&](char x, char y) { return fold(x) < fold(y); });
}

std::unique_ptr<InputFile> OpenInputFile(const MemoryFiles& files, const std::string& path) {
  if (files.count(path) == 0) return nullptr;
  return std::make_unique<MemoryInput>(files, path);
}

std::unique_ptr<OutputFile> OpenOutputFile(MemoryFiles& files, const std::string& path) {
  if (NameStart(path) == path.size()) return nullptr;
  files[path].clear();
  return std::make_unique<MemoryOutput>(files, path);
}

bool FileMatches(const MemoryFiles& files, const std::string& pattern) {
  const std::size_t name = NameStart(pattern);
  return std::any_of(files.begin(), files.end(), [&](const auto& file) {
    const std::string& path = file.first;
    return NameStart(path) == name && SamePath(path.substr(0, name), pattern.substr(0, name)) &&
           MatchesPattern(path.substr(name), pattern.substr(name));
  });
}
