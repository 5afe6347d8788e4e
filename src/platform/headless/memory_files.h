// Files in memory, for runs that must not touch the file system.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/platform.h"

// Orders paths without regard to case; / equals \.
struct PathOrder {
  bool operator()(const std::string& a, const std::string& b) const;
};

// Contents by path as the user writes it. There are no folders: any path names a file, unless it is
// empty or ends in a separator. A file that is erased while it is open fails to be read.
using MemoryFiles = std::map<std::string, std::string, PathOrder>;

// Opens a file for reading; null if it is missing. `files` must outlive the result.
[[nodiscard]] std::unique_ptr<InputFile> OpenInputFile(const MemoryFiles& files,
                                                       const std::string& path);

// Creates or empties a file for writing; null if the path cannot name a file. `files` must outlive
// the result.
[[nodiscard]] std::unique_ptr<OutputFile> OpenOutputFile(MemoryFiles& files,
                                                         const std::string& path);

// Whether a file matches a path whose last part may contain * and ?.
bool FileMatches(const MemoryFiles& files, const std::string& pattern);
