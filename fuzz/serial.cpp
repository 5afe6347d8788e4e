// What a receiver sends, in chunks.
//   Input  a character that seeds the sizes of the chunks and whose lowest bit stores a home
//          station; then the characters of the receiver.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/invariants.h"
#include "gps/nmea_receiver.h"
#include "gps/port_setup.h"
#include "workspace/events/start_and_exit.h"

namespace {

void FeedAndCheck(Program& program, const std::string& chunk, std::size_t inputSize) {
  Bounded([&] { Feed(program.platform.serial, chunk); });
  CheckRecord(program.w, inputSize);
  CheckPlace(program.w);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  Program program;
  program.platform.files->clear();
  program.platform.serial.ports = {9};
  program.platform.serial.onComm = [&] { SetUpCom::MSComm1_OnComm(program.w); };
  program.platform.StoreSetting("CPort", "CP", "COM9");
  if (*data % 2 == 1) {
    program.platform.StoreSetting("Home", "Lat", "51.5");
    program.platform.StoreSetting("Home", "Long", "-1.25");
  }
  Form_Load(program.w);
  SetUpCom::Command1_Click(program.w);
  const std::string stream(data + 1, data + size);
  std::uint32_t random = *data;
  for (std::size_t at = 0; at < stream.size();) {
    random = random * 1664525 + 1013904223;
    const std::size_t chunk = 1 + (random >> 24);
    FeedAndCheck(program, stream.substr(at, chunk), size);
    at += chunk;
  }
  std::string& box = program.w.Tarnwick.InputText.text;
  box.clear();
  for (int i = 0; i < 3; ++i)
    FeedAndCheck(program,
                 "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n", size);
  Require(box == "48 07.038N 011 31.000E [ 12:35:19 UTC ]",
          "the third good sentence at the latest is used, whatever came before");
  return 0;
}
