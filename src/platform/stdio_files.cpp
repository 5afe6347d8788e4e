#include "platform/stdio_files.h"

#include <cstdio>
#include <system_error>

namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using FilePointer = std::unique_ptr<std::FILE, CloseFile>;

FilePointer Open(const std::filesystem::path& path, bool forWriting) {
#ifdef _WIN32
  // fopen would accept only characters of the user's code page.
  FilePointer file(_wfopen(path.c_str(), forWriting ? L"wb" : L"rb"));
#else
  FilePointer file(std::fopen(path.c_str(), forWriting ? "wb" : "rb"));
#endif
  if (file) std::setvbuf(file.get(), nullptr, _IONBF, 0);
  return file;
}

struct StdioInput : InputFile {
  explicit StdioInput(FilePointer opened) : file(std::move(opened)) {}

  std::optional<std::size_t> Read(char* to, std::size_t size) override {
    const std::size_t count = std::fread(to, 1, size, file.get());
    if (count == 0 && std::ferror(file.get()) != 0) return {};
    return count;
  }

  FilePointer file;
};

struct StdioOutput : OutputFile {
  explicit StdioOutput(FilePointer opened) : file(std::move(opened)) {}

  bool Write(std::string_view bytes) override {
    return std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  }
  bool Close() override { return std::fclose(file.release()) == 0; }

  FilePointer file;
};

}  // namespace

std::unique_ptr<InputFile> OpenInputFile(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return nullptr;
  FilePointer file = Open(path, false);
  if (!file) return nullptr;
  return std::make_unique<StdioInput>(std::move(file));
}

std::unique_ptr<OutputFile> OpenOutputFile(const std::filesystem::path& path) {
  std::error_code error;
  if (std::filesystem::is_fifo(path, error)) return nullptr;
  FilePointer file = Open(path, true);
  if (!file) return nullptr;
  return std::make_unique<StdioOutput>(std::move(file));
}
