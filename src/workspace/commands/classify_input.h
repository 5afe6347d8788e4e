// Decides which kind of input a text is.
#pragma once

#include <cstdint>
#include <string>

// There is no kind 3.
enum InputKind : std::int16_t {
  kSiteName = 0,
  kGridReference = 1,
  kLocator = 2,
  kLatLong = 4,
};

// Decides by the first six characters. A text that starts with a positive number is a latitude and
// longitude. A text that starts with two letters and two digits is a grid reference if two digits
// follow, and a locator if two letters follow. All other texts, and texts of fewer than five
// characters, are names of sites. The decoders accept other lengths and letters out of range.
// In, out  text  upper case; loses its blanks if it starts with two letters and two digits
// Out      kind
void ClassifyInput(std::string& text, InputKind& kind);
