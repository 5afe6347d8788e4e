#include "platform/headless/headless.h"

#include "platform/drive_paths.h"
#include "platform/stdio_files.h"
#include "workspace/values/number_text.h"
#include "workspace/values/strings.h"

bool HeadlessSerial::SetCommPort(std::int16_t number) {
  if (open || number < 1 || number > 32) return false;
  port = number;
  return true;
}

bool HeadlessSerial::SetSettings(const std::string& text) {
  settings = text;
  return TextToNumber(text) >= 1 && text.find(",n,8,1") == text.find_first_not_of("0123456789");
}

bool HeadlessSerial::Open() {
  if (open || ports.count(port) == 0) return false;
  open = true;
  return true;
}

void HeadlessSerial::Close() {
  open = false;
  waiting.clear();
}

std::string HeadlessSerial::Input() {
  std::string text = LeftOf(waiting, bufferSize);
  waiting.erase(0, text.size());
  return text;
}

bool HeadlessPlatform::WithoutCase::operator()(const std::string& a, const std::string& b) const {
  return UpperOf(a) < UpperOf(b);
}

std::string HeadlessPlatform::ReadSetting(const std::string& section, const std::string& key,
                                          const std::string& otherwise) {
  const auto at = settings.find(section + "/" + key);
  return at == settings.end() ? otherwise : at->second.text;
}

void HeadlessPlatform::StoreSetting(const std::string& section, const std::string& key,
                                    const std::string& text) {
  settings[section + "/" + key] = {section, key, text};
}

bool HeadlessPlatform::FileExists(const std::string& pattern) {
  return FileMatches(driveC, pattern);
}

std::unique_ptr<InputFile> HeadlessPlatform::OpenToRead(const std::string& path) {
  return OpenInputFile(NativePath(driveC, path));
}

std::unique_ptr<OutputFile> HeadlessPlatform::OpenToWrite(const std::string& path) {
  return OpenOutputFile(NativePath(driveC, path));
}

bool HeadlessPlatform::IsSameFile(const std::string& path, const std::string& other) {
  std::error_code error;
  return std::filesystem::equivalent(NativePath(driveC, path), NativePath(driveC, other), error);
}

bool HeadlessPlatform::Shell(const std::string& command, WindowStyle /*style*/) {
  events.push_back("Shell " + command);
  return startsPrograms;
}

void Feed(HeadlessSerial& serial, const std::string& characters) {
  if (serial.open) serial.waiting += characters;
  while (serial.open && serial.threshold > 0 && LengthOf(serial.waiting) >= serial.threshold)
    serial.onComm();
}
