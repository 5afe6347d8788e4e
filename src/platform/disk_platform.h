// The part of a platform that reads and writes the files on disk.
#pragma once

#include <filesystem>
#include <vector>

#include "platform/platform.h"

struct DiskPlatform : Platform {
  // Returns the files or folders that a path may name; at least one. The first is the one to create
  // or to replace.
  virtual std::vector<std::filesystem::path> PlacesOf(const std::string& path) const = 0;
  // Returns the first of PlacesOf that exists; the first one if none exists.
  std::filesystem::path PathToRead(const std::string& path) const;

  // Searches all of PlacesOf.
  bool ContainsFile(const std::string& folder, std::string_view ending) override;
  std::unique_ptr<File> OpenToRead(const std::string& path) override;
  std::unique_ptr<File> OpenToWrite(const std::string& path) override;
  bool IsSameFile(const std::string& path, const std::string& other) override;
};
