// Tells the forms of a place apart.
#pragma once

#include <cstdint>
#include <string>

// What a text is. There is no kind 3.
inline constexpr std::int16_t kSiteName = 0;
inline constexpr std::int16_t kGridReference = 1;
inline constexpr std::int16_t kLocator = 2;
inline constexpr std::int16_t kLatLong = 4;

// Sorts a text by its first characters: a positive number opens a latitude and longitude, two
// letters and two digits a locator or a grid reference, as two more letters or digits decide.
// Lengths beyond that and the range of the letters are the decoders' business.
// In, out  text  upper case; loses its blanks once its first four characters fit a reference.
// Out      kind
void ClassifyInput(std::string& text, std::int16_t& kind);
