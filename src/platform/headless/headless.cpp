#include "platform/headless/headless.h"

#include <algorithm>

#include "platform/receive_buffer.h"
#include "workspace/values/strings.h"

namespace {

struct MemoryFile : File {
  MemoryFile(MemoryFiles& allFiles, std::string pathOfFile)
      : files(allFiles), path(std::move(pathOfFile)) {}

  std::optional<std::size_t> Read(char* to, std::size_t size) override {
    const auto file = files.find(path);
    if (file == files.end()) return {};
    const std::size_t start = std::min(position, file->second.size());
    const std::size_t count = file->second.copy(to, size, start);
    position += count;
    return count;
  }
  bool Write(std::string_view bytes) override {
    files[path] += bytes;
    return true;
  }
  bool Close() override { return true; }

  MemoryFiles& files;
  const std::string path;
  std::size_t position = 0;
};

// A file whose calls can be made to fail.
struct FaultyFile : File {
  FaultyFile(FaultInjection& faultsOfPlatform, std::unique_ptr<File> opened)
      : faults(faultsOfPlatform), file(std::move(opened)) {}

  std::optional<std::size_t> Read(char* to, std::size_t size) override {
    if (faults.Fails("Read")) return {};
    return file->Read(to, size);
  }
  bool Write(std::string_view bytes) override {
    return !faults.Fails("Write") && file->Write(bytes);
  }
  bool Close() override {
    const bool closed = file->Close();
    return !faults.Fails("Close") && closed;
  }

  FaultInjection& faults;
  std::unique_ptr<File> file;
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
  std::unique_ptr<File> file;
  if (!files)
    file = DiskPlatform::OpenToRead(path);
  else if (files->count(path) != 0)
    file = std::make_unique<MemoryFile>(*files, path);
  return file ? std::make_unique<FaultyFile>(faults, std::move(file)) : nullptr;
}

std::unique_ptr<File> HeadlessPlatform::OpenToWrite(const std::string& path) {
  if (faults.Fails("OpenToWrite")) return nullptr;
  std::unique_ptr<File> file;
  if (!files) {
    file = DiskPlatform::OpenToWrite(path);
  } else if (!path.empty() && !Folded(path).ends_with('\\')) {
    (*files)[path].clear();
    file = std::make_unique<MemoryFile>(*files, path);
  }
  return file ? std::make_unique<FaultyFile>(faults, std::move(file)) : nullptr;
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
