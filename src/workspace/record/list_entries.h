// Append-only list of short texts, without an allocation for each, because a lookup may find
// millions.
#pragma once

#include <array>
#include <cstddef>
#include <deque>
#include <string_view>

// Longer texts are cut to this number of characters.
inline constexpr std::size_t kEntryLength = 28;

// The texts in the order in which they were added.
class ListEntries {
 public:
  void Add(std::string_view text) {
    Entry& entry = entries_.emplace_back();
    entry.length = static_cast<unsigned char>(text.copy(entry.text.data(), kEntryLength));
  }
  std::size_t size() const { return entries_.size(); }
  // Requires i < size().
  std::string_view operator[](std::size_t i) const {
    return {entries_[i].text.data(), entries_[i].length};
  }
  bool operator==(const ListEntries&) const = default;

 private:
  struct Entry {
    std::array<char, kEntryLength> text{};
    unsigned char length = 0;
    bool operator==(const Entry&) const = default;
  };
  std::deque<Entry> entries_;
};
