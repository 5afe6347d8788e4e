#include "platform/headless/headless.h"

#include <algorithm>

#include "platform/drive_paths.h"
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

// Return the path in upper case and with \ for every separator.
char Folded(char c) {
  return c == '/' ? '\\' : UpperOf(c);
}
std::string Folded(std::string path) {
  for (char& c : path) c = Folded(c);
  return path;
}

}  // namespace

bool HeadlessSerial::Open(int port, int speed) {
  if (faults.Fails("Open") || open || ports.count(port) == 0) return false;
  openSpeed = speed;
  open = true;
  return true;
}

void HeadlessSerial::Close() {
  open = false;
  arrived.clear();
  buffer.clear();
}

bool PathOrder::operator()(const std::string& a, const std::string& b) const {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return std::char_traits<char>::lt(Folded(x), Folded(y));
  });
}

std::string HeadlessPlatform::ReadSetting(const std::string& section, const std::string& key,
                                          const std::string& otherwise) {
  const auto at = settings.find(section + "/" + key);
  return faults.Fails("ReadSetting") || at == settings.end() ? otherwise : at->second.text;
}

void HeadlessPlatform::StoreSetting(const std::string& section, const std::string& key,
                                    const std::string& text) {
  if (!faults.Fails("StoreSetting")) settings[section + "/" + key] = {section, key, text};
}

std::vector<std::filesystem::path> HeadlessPlatform::PlacesOf(const std::string& path) const {
  return {NativePath(driveC, path)};
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

bool HeadlessPlatform::Shell(const std::string& command, WindowStyle /*style*/) {
  events.push_back("Shell " + command);
  return !faults.Fails("Shell");
}

void Feed(HeadlessSerial& serial, const std::string& characters) {
  if (serial.open) serial.arrived += characters;
  while (Fill(serial.buffer, serial.arrived)) {
    serial.onComm();
    if (!serial.buffer.empty()) return;  // the handler has not read it
  }
}
