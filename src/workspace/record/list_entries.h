// Many short texts: a lookup may find a million. A string for each would take twice the memory and
// a third more time, so they stand one behind another, in pages that stay where they are.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

// ListEntries in the order in which they were added.
class ListEntries {
 public:
  void Add(std::string_view text) {
    if (size_ % kPage == 0) pages_.emplace_back().texts.reserve(kPage * kUsualLength);
    Page& page = pages_.back();
    page.texts += text;
    page.ends[size_++ % kPage] = static_cast<std::uint32_t>(page.texts.size());
  }
  std::size_t size() const { return size_; }
  // Holds until the next is added; there must be such an entry.
  std::string_view operator[](std::size_t i) const {
    const Page& page = pages_[i / kPage];
    const std::size_t start = i % kPage == 0 ? 0 : page.ends[i % kPage - 1];
    return std::string_view(page.texts).substr(start, page.ends[i % kPage] - start);
  }
  bool operator==(const ListEntries&) const = default;

 private:
  static constexpr std::size_t kPage = 1024;
  static constexpr std::size_t kUsualLength = 28;  // to which a lookup cuts them
  struct Page {
    std::string texts{};  // one behind another
    std::array<std::uint32_t, kPage> ends{};
    bool operator==(const Page&) const = default;
  };
  std::deque<Page> pages_;
  std::size_t size_ = 0;
};
