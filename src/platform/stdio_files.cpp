#include "platform/stdio_files.h"

#include <cstdio>
#include <system_error>

namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { (void)std::fclose(file); }
};

struct StdioFile : File {
  std::optional<std::size_t> Read(char* to, std::size_t size) override {
    const std::size_t count = std::fread(to, 1, size, file.get());
    if (count == 0 && std::ferror(file.get()) != 0) return {};
    return count;
  }
  bool Write(std::string_view bytes) override {
    return std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  }
  bool Close() override { return std::fclose(file.release()) == 0; }

  std::unique_ptr<std::FILE, CloseFile> file;
};

// Returns null on failure.
std::unique_ptr<File> Open(const std::filesystem::path& path, bool forWriting) {
  auto opened = std::make_unique<StdioFile>();
#ifdef _WIN32
  // fopen would accept only characters of the user's code page.
  opened->file.reset(_wfopen(path.c_str(), forWriting ? L"wb" : L"rb"));
#else
  opened->file.reset(std::fopen(path.c_str(), forWriting ? "wb" : "rb"));
#endif
  if (!opened->file) return nullptr;
  (void)std::setvbuf(opened->file.get(), nullptr, _IONBF, 0);  // a failure only costs speed
  return opened;
}

}  // namespace

std::unique_ptr<File> OpenStdioToRead(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error) ? Open(path, false) : nullptr;
}

std::unique_ptr<File> OpenStdioToWrite(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::is_fifo(path, error) ? nullptr : Open(path, true);
}
