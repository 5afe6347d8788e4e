// Files on disk, read and written through the C library with its buffering switched off.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/platform.h"

// Opens a regular file for reading; null if it is missing, unreadable or of another kind: a device
// or a pipe could block or never end.
[[nodiscard]] std::unique_ptr<File> OpenStdioToRead(const std::filesystem::path& path);

// Creates or empties a file for writing; null if that fails or the path leads to a pipe, which
// could block for ever.
[[nodiscard]] std::unique_ptr<File> OpenStdioToWrite(const std::filesystem::path& path);
