#include "platform/headless/headless.h"

#include "platform/drive_paths.h"
#include "platform/serial_settings.h"
#include "platform/stdio_files.h"
#include "workspace/values/strings.h"

namespace {

// A file whose calls can be made to fail.
struct FaultyInput : InputFile {
  FaultyInput(FaultInjection& faultsOfPlatform, std::unique_ptr<InputFile> opened)
      : faults(faultsOfPlatform), file(std::move(opened)) {}

  std::optional<std::size_t> Read(char* to, std::size_t size) override {
    if (faults.Fails("Read")) return {};
    return file->Read(to, size);
  }

  FaultInjection& faults;
  std::unique_ptr<InputFile> file;
};

struct FaultyOutput : OutputFile {
  FaultyOutput(FaultInjection& faultsOfPlatform, std::unique_ptr<OutputFile> opened)
      : faults(faultsOfPlatform), file(std::move(opened)) {}

  bool Write(std::string_view bytes) override {
    return !faults.Fails("Write") && file->Write(bytes);
  }
  bool Close() override {
    const bool closed = file->Close();
    return !faults.Fails("Close") && closed;
  }

  FaultInjection& faults;
  std::unique_ptr<OutputFile> file;
};

}  // namespace

bool HeadlessSerial::SetCommPort(std::int16_t number) {
  if (faults.Fails("SetCommPort") || open || number < 1 || number > kHighestPort) return false;
  port = number;
  return true;
}

void HeadlessSerial::SetInBufferSize(int characters) {
  buffer.size = static_cast<std::size_t>(characters);
}

bool HeadlessSerial::SetSettings(const std::string& settings) {
  return !faults.Fails("SetSettings") && SpeedOf(settings).has_value();
}

void HeadlessSerial::SetRThreshold(int characters) {
  buffer.threshold = static_cast<std::size_t>(characters);
}

bool HeadlessSerial::Open() {
  if (faults.Fails("Open") || open || ports.count(port) == 0) return false;
  open = true;
  return true;
}

void HeadlessSerial::Close() {
  open = false;
  arrived.clear();
  buffer.characters.clear();
}

bool HeadlessPlatform::WithoutCase::operator()(const std::string& a, const std::string& b) const {
  return UpperOf(a) < UpperOf(b);
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

bool HeadlessPlatform::FileExists(const std::string& pattern) {
  return files ? FileMatches(*files, pattern) : FileMatches(driveC, pattern);
}

std::unique_ptr<InputFile> HeadlessPlatform::OpenToRead(const std::string& path) {
  if (faults.Fails("OpenToRead")) return nullptr;
  std::unique_ptr<InputFile> file =
      files ? OpenInputFile(*files, path) : OpenInputFile(NativePath(driveC, path));
  if (!file) return nullptr;
  return std::make_unique<FaultyInput>(faults, std::move(file));
}

std::unique_ptr<OutputFile> HeadlessPlatform::OpenToWrite(const std::string& path) {
  if (faults.Fails("OpenToWrite")) return nullptr;
  std::unique_ptr<OutputFile> file =
      files ? OpenOutputFile(*files, path) : OpenOutputFile(NativePath(driveC, path));
  if (!file) return nullptr;
  return std::make_unique<FaultyOutput>(faults, std::move(file));
}

bool HeadlessPlatform::IsSameFile(const std::string& path, const std::string& other) {
  if (files) return files->count(path) != 0 && files->find(path) == files->find(other);
  std::error_code error;
  return std::filesystem::equivalent(NativePath(driveC, path), NativePath(driveC, other), error);
}

bool HeadlessPlatform::Shell(const std::string& command, WindowStyle /*style*/) {
  events.push_back("Shell " + command);
  return !faults.Fails("Shell");
}

void Feed(HeadlessSerial& serial, const std::string& characters) {
  if (serial.open) serial.arrived += characters;
  do {
    Fill(serial.buffer, serial.arrived);
    if (!IsEventDue(serial.buffer)) return;
    serial.onComm();
  } while (serial.open && !IsEventDue(serial.buffer));
}
