#include "platform/disk_platform.h"

#include <algorithm>
#include <fstream>
#include <system_error>

#include "platform/drive_paths.h"

namespace {

namespace fs = std::filesystem;

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

fs::path DiskPlatform::PathToRead(const std::string& path) const {
  std::error_code error;
  const std::vector<fs::path> places = PlacesOf(path);
  for (const fs::path& place : places)
    if (fs::exists(place, error)) return place;
  return places.front();
}

bool DiskPlatform::ContainsFile(const std::string& folder, std::string_view ending) {
  const std::vector<fs::path> places = PlacesOf(folder);
  return std::any_of(places.begin(), places.end(),
                     [&](const fs::path& place) { return ::ContainsFile(place, ending); });
}

std::unique_ptr<File> DiskPlatform::OpenToRead(const std::string& path) {
  std::error_code error;
  const fs::path file = PathToRead(path);
  return fs::is_regular_file(file, error) ? Open(file, std::ios::in) : nullptr;
}

std::unique_ptr<File> DiskPlatform::OpenToWrite(const std::string& path) {
  std::error_code error;
  const fs::path file = PlacesOf(path).front();
  return fs::is_fifo(file, error) ? nullptr : Open(file, std::ios::out | std::ios::trunc);
}

bool DiskPlatform::IsSameFile(const std::string& path, const std::string& other) {
  std::error_code error;
  return fs::equivalent(PathToRead(path), PathToRead(other), error);
}
