// Typed texts, one after the other, with and without a home station.
//   Input  a character: bit 0 makes the first text the home station, bits 1 and 2 are the layout of
//          latitude and longitude; then the texts, one a line.
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>

#include "fuzz/invariants.h"

// Sites with a position of every kind, good and bad.
constexpr const char* kSites =
    "Alpha Hill~IO91VL\r\nBeacon~SU12 3456~mast\r\nOdd~IO91WM4\r\nNone~\r\nLine~51 30N 1 15W\r\n"
    "Far~ZZ99999999999\r\nENDENDEND\r\n";

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  static const bool kWritten =
      (std::ofstream(GeogFile("Sites.dat"), std::ios::binary) << kSites).good();
  Require(kWritten, "the database was written");
  Program program;
  Workspace& w = program.w;
  w.LLFormat = (*data >> 1) % 3;
  bool first = true;
  for (const std::string& text : LinesOf({data + 1, data + size})) {
    UseThis(w, text);
    if (first && *data % 2 == 1) SetHome_Click(w);
    first = false;
  }
  Require(ContentOf(GeogFile("Sites.dat")) == kSites, "the database is never written");
  return 0;
}
