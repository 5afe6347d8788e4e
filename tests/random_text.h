// Random texts. A seed makes the same texts on every system.
#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>

inline constexpr std::string_view kDigits = "0123456789";
inline constexpr std::string_view kSubsquares = "ABCDEFGHIJKLMNOPQRSTUVWX";

// Returns `count` of the characters, drawn with replacement.
inline std::string SomeOf(std::mt19937& random, std::string_view characters, std::size_t count) {
  std::string text;
  while (text.size() < count) text += characters[random() % characters.size()];
  return text;
}
