// The part of a platform that reads and writes the files on disk, and paths with a drive letter on
// a system without drives: c:\geog\Sites.dat is the file geog/Sites.dat in a folder that represents
// drive c:. Below such a folder the case of letters makes no difference.
#pragma once

#include <filesystem>
#include <vector>

#include "platform/platform.h"

// Converts single-byte text to a path of the system.
std::filesystem::path SystemPath(std::string_view path);

// Returns the file or folder that a path names. A path without a drive letter is a path of the
// system and is only converted. A part that does not exist, such as the name of a file to be
// created, keeps its case.
// In  driveC  the folder that represents drive c:; drive_d and so on are beside it
//     path    single-byte text, parts separated by \ or /
std::filesystem::path NativePath(const std::filesystem::path& driveC, const std::string& path);

struct DiskPlatform : Platform {
  // Returns the files or folders that a path may name; at least one. The first is the one to create
  // or to replace.
  virtual std::vector<std::filesystem::path> CandidatePaths(const std::string& path) const = 0;
  // Returns the first of CandidatePaths that exists; the first one if none exists.
  std::filesystem::path PathToRead(const std::string& path) const;

  // Searches all of CandidatePaths.
  bool ContainsFile(const std::string& folder, std::string_view ending) override;
  std::unique_ptr<File> OpenToRead(const std::string& path) override;
  std::unique_ptr<File> OpenToWrite(const std::string& path) override;
  bool IsSameFile(const std::string& path, const std::string& other) override;
};
