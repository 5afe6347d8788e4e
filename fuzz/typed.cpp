// Typed texts, one after the other, with and without a home station.
//   Input  a character: bit 0 makes the first text the home station, bits 1 and 2 are the layout of
//          latitude and longitude; then the texts, one a line.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/invariants.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  Program program;
  Workspace& w = program.w;
  w.LLFormat = (*data >> 1) % 3;
  bool first = true;
  for (const std::string& text : LinesOf({data + 1, data + size})) {
    UseThis(w, text);
    if (first && *data % 2 == 1) SetHome_Click(w);
    first = false;
  }
  return 0;
}
