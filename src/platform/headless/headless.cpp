#include "platform/headless/headless.h"

#include <algorithm>

#include "platform/receive_buffer.h"
#include "workspace/values/strings.h"

namespace {

// A file on disk or in memory, whose calls can be made to fail.
struct HeadlessFile : File {
  HeadlessFile(HeadlessPlatform& platformOfFile, std::string pathOfFile, std::unique_ptr<File> file)
      : platform(platformOfFile), path(std::move(pathOfFile)), disk(std::move(file)) {}

  std::optional<std::size_t> Read(char* to, std::size_t size) override {
    if (platform.faults.Fails("Read")) return {};
    if (disk) return disk->Read(to, size);
    const auto file = platform.files->find(path);
    if (file == platform.files->end()) return {};
    const std::size_t start = std::min(position, file->second.size());
    const std::size_t count = file->second.copy(to, size, start);
    position += count;
    return count;
  }
  bool Write(std::string_view bytes) override {
    if (platform.faults.Fails("Write")) return false;
    if (disk) return disk->Write(bytes);
    (*platform.files)[path] += bytes;
    return true;
  }
  bool Close() override {
    const bool closed = !disk || disk->Close();
    return !platform.faults.Fails("Close") && closed;
  }

  HeadlessPlatform& platform;
  const std::string path;
  const std::unique_ptr<File> disk;  // null: in memory
  std::size_t position = 0;          // in memory
};

// Returns the path in upper case and with \ for every separator.
std::string Folded(std::string_view path) {
  std::string folded = UpperOf(path);
  std::replace(folded.begin(), folded.end(), '/', '\\');
  return folded;
}

}  // namespace

bool PathOrder::operator()(const std::string& a, const std::string& b) const {
  return Folded(a) < Folded(b);
}

bool HeadlessPlatform::ContainsFile(const std::string& folder, std::string_view ending) {
  if (!files) return DiskPlatform::ContainsFile(folder, ending);
  return std::any_of(files->begin(), files->end(), [&](const auto& file) {
    const std::string path = Folded(file.first);
    return path.starts_with(Folded(folder)) && path.ends_with(UpperOf(ending)) &&
           path.find('\\', folder.size()) == std::string::npos;
  });
}

std::unique_ptr<File> HeadlessPlatform::OpenToRead(const std::string& path) {
  if (faults.Fails("OpenToRead")) return nullptr;
  auto disk = files ? nullptr : DiskPlatform::OpenToRead(path);
  const bool exists = files ? files->count(path) != 0 : disk != nullptr;
  return exists ? std::make_unique<HeadlessFile>(*this, path, std::move(disk)) : nullptr;
}

std::unique_ptr<File> HeadlessPlatform::OpenToWrite(const std::string& path) {
  if (faults.Fails("OpenToWrite")) return nullptr;
  auto disk = files ? nullptr : DiskPlatform::OpenToWrite(path);
  const bool isFile = files ? !path.empty() && !Folded(path).ends_with('\\') : disk != nullptr;
  if (!isFile) return nullptr;
  if (files) (*files)[path].clear();
  return std::make_unique<HeadlessFile>(*this, path, std::move(disk));
}

bool HeadlessPlatform::IsSameFile(const std::string& path, const std::string& other) {
  if (!files) return DiskPlatform::IsSameFile(path, other);
  return files->count(path) != 0 && files->find(path) == files->find(other);
}

void Feed(HeadlessSerial& serial, const std::string& characters) {
  if (serial.open) serial.arrived += characters;
  while (Fill(serial.buffer, serial.arrived)) {
    serial.onComm();
    if (!serial.buffer.empty()) return;  // the handler has not read it
  }
}
