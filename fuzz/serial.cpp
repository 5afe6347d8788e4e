// What a receiver sends, in chunks.
//   Input  a character that seeds the sizes of the chunks and whose lowest bit stores a home
//          station; then the characters of the receiver.
#include "fuzz/invariants.h"
#include "gps/port_setup.h"

void Try(const std::string& input) {
  Program program;
  Workspace& w = program.w;
  program.platform.files->clear();
  program.platform.StoreSetting("CPort", "CP", "COM9");
  if (input.front() % 2 != 0) {
    program.platform.StoreSetting("Home", "Lat", "51.5");
    program.platform.StoreSetting("Home", "Long", "-1.25");
  }
  program.Start();
  SetUpCom::Command1_Click(w);
  std::string& box = w.Tarnwick.InputText.text;
  box.clear();
  program.platform.serial.onComm = [&] {
    SetUpCom::MSComm1_OnComm(w);
    if (box.empty()) return;
    CheckRecord(w, input.size());
    CheckPlace(w);
    box.clear();
  };
  auto random = static_cast<std::uint32_t>(input.front());
  for (std::size_t at = 1, chunk = 0; at < input.size(); at += chunk) {
    random = random * 1664525 + 1013904223;
    chunk = 1 + (random >> 24);
    Feed(program.platform.serial, input.substr(at, chunk));
  }
  program.platform.serial.onComm = [&] { SetUpCom::MSComm1_OnComm(w); };
  for (int i = 0; i < 3; ++i) Feed(program.platform.serial, kSentence);
  Require(box == "48 07.038N 011 31.000E [ 12:35:19 UTC ]",
          "the third good sentence at the latest is used, whatever came before");
}
