// Append-only list of short texts, packed into pages because a lookup may find millions. A vector
// of strings takes twice the memory and a third more time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

// The texts in the order in which they were added.
class ListEntries {
 public:
  void Add(std::string_view text) {
    if (size_ % kPage == 0) pages_.emplace_back().texts.reserve(kPage * kUsualLength);
    Page& page = pages_.back();
    page.texts += text;
    page.ends[size_++ % kPage] = static_cast<std::uint32_t>(page.texts.size());
  }
  std::size_t size() const { return size_; }
  // Requires i < size(). The view is valid until the next Add.
  std::string_view operator[](std::size_t i) const {
    const Page& page = pages_[i / kPage];
    const std::size_t start = i % kPage == 0 ? 0 : page.ends[i % kPage - 1];
    return std::string_view(page.texts).substr(start, page.ends[i % kPage] - start);
  }
  bool operator==(const ListEntries&) const = default;

 private:
  static constexpr std::size_t kPage = 1024;       // texts in a page
  static constexpr std::size_t kUsualLength = 28;  // a lookup cuts its entries to this
  struct Page {
    std::string texts{};                      // concatenated
    std::array<std::uint32_t, kPage> ends{};  // where each text ends in `texts`
    bool operator==(const Page&) const = default;
  };
  std::deque<Page> pages_;
  std::size_t size_ = 0;
};
