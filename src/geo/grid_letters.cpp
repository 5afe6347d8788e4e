#include "geo/grid_letters.h"

#include "workspace/values/strings.h"

namespace {

// Index of a letter in the grid alphabet, from 0.
int LetterIndex(char letter) {
  const int index = static_cast<unsigned char>(letter) - 65;
  return index > 8 ? index - 1 : index;
}

}  // namespace

void CornerOf(char firstLetter, char secondLetter, int& easting, int& northing) {
  const int a = LetterIndex(firstLetter);
  const int b = LetterIndex(secondLetter);
  easting = (a % 5) * 500000 + (b % 5) * 100000 - 1000000;
  northing = 1900000 - (a / 5) * 500000 - (b / 5) * 100000;
}

std::array<char, 2> LettersOf(int eastIndex, int northIndex) {
  int first = 83 - 5 * (northIndex / 5) + eastIndex / 5;
  if (first == 73) first = 72;
  int second = 65 + 5 * (4 - northIndex % 5) + eastIndex % 5;
  if (second > 72) ++second;
  return {CharFromCode(first), CharFromCode(second)};
}
