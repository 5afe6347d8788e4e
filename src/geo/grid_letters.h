// The 100 km squares of the National Grid and their two letters. The grid alphabet has no I.
#pragma once

#include <array>

inline constexpr double kSquareSide = 100000;  // m

// The south-west corner, m, of the lettered square. I counts as J; letters off the grid return a
// corner off the grid.
void CornerOf(char firstLetter, char secondLetter, int& easting, int& northing);

// The two letters of a square, its column and row counted from the south-west corner SV.
std::array<char, 2> LettersOf(int eastIndex, int northIndex);
