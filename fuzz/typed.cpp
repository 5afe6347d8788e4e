// Typed texts, one after the other, with and without a home station.
//   Input  a character: bit 0 makes the first text the home station, bits 1 and 2 are the layout of
//          latitude and longitude, bit 3 reads the texts as UTF-8; then the texts, one a line.
#include "fuzz/invariants.h"

void Try(const std::string& input) {
  const auto options = static_cast<unsigned char>(input.front());
  Program program;
  Workspace& w = program.w;
  w.LLFormat = (options >> 1) % 3;
  bool isHome = options % 2 == 1;
  for (const std::string& line : LinesOf(input.substr(1))) {
    const std::string text = (options & 8) != 0 ? FromUtf8(line) : line;
    Require(FromUtf8(ToUtf8(text)) == text, "a text on screen reads back unchanged");
    UseThis(w, text);
    if (std::exchange(isHome, false)) SetHome_Click(w);
  }
}
