// A start with hostile settings, then an exit and another start.
//   Input  a character whose lowest bit checks SaveOnExit, then the texts of kSettings, one a line;
//          a line with only a ! leaves that setting out.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/invariants.h"
#include "workspace/events/start_and_exit.h"

namespace {

constexpr const char* kSettings[][2] = {
    {"Home", "Lat"}, {"Home", "Long"},  {"FormPLace", "Left"}, {"FormPLace", "Top"},
    {"CPort", "CP"}, {"CPort", "Baud"}, {"LocDB", "DB"}};

// Starts the program and returns the restored home station.
std::vector<double> Start(Workspace& w, std::size_t inputSize) {
  Bounded([&w] { Form_Load(w); });
  CheckRecord(w, inputSize);
  if (IsTrue(w.BaseSet)) CheckPlace(w);
  Require(w.Tarnwick.visible && w.Tarnwick.FindIt.enabled, "the program is ready");
  return {w.BaseSet, w.BaseLat, w.BaseLong};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  Program program;
  HeadlessPlatform& platform = program.platform;
  const std::vector<std::string> texts = LinesOf({data + 1, data + size});
  for (std::size_t i = 0; i < std::min(std::size(kSettings), texts.size()); ++i)
    if (texts[i] != "!") platform.StoreSetting(kSettings[i][0], kSettings[i][1], texts[i]);

  Workspace& first = program.w;
  const std::vector<double> home = Start(first, size);
  Bounded([&] { (void)platform.ContainsFile(first.Tarnwick.LocDatabase.text, ".jpg"); });
  const bool kept = !IsTrue(first.BaseSet) || *data % 2 == 0;
  first.Tarnwick.SaveOnExit.checked = !kept;
  first.SetUpCom.CPort.text = texts.back();
  Form_Unload(first);
  Workspace second(platform);
  const std::vector<double> again = Start(second, size);
  // Storing a value just below 500 may round it up to 500, which is no home station.
  const bool isPlace = first.BaseLat < 499 && first.BaseLong < 499;
  for (std::size_t i = 0; i < home.size() && isPlace; ++i)
    Require(std::fabs(again[i] - home[i]) <= 1e-14 * std::fabs(home[i]),
            "the home station is restored");
  Require(second.SetUpCom.CPort.text == texts.back(), "the port is restored");
  return 0;
}
