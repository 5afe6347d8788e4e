// A start with hostile settings, then an exit and another start.
//   Input  a character whose lowest bit checks SaveOnExit, then the texts of kSettings, one a line;
//          a line with only a ! leaves that setting out. The last line is the port at the exit.
#include <iterator>

#include "fuzz/invariants.h"

namespace {

constexpr const char* kSettings[][2] = {
    {"Home", "Lat"}, {"Home", "Long"},  {"FormPLace", "Left"}, {"FormPLace", "Top"},
    {"CPort", "CP"}, {"CPort", "Baud"}, {"LocDB", "DB"}};

}  // namespace

void Try(const std::string& input) {
  Program program;
  Workspace& w = program.w;
  const std::vector<std::string> texts = LinesOf(input.substr(1));
  for (std::size_t i = 0; i < std::min(std::size(kSettings), texts.size()); ++i)
    if (texts[i] != "!") program.platform.StoreSetting(kSettings[i][0], kSettings[i][1], texts[i]);
  const auto start = [&] {
    program.Start();
    CheckRecord(w, input.size());
    if (w.BaseSet == kTrue) CheckPlace(w);
    return std::tuple(w.BaseSet == kTrue, w.BaseLat, w.BaseLong);
  };
  const auto [isSet, latitude, longitude] = start();
  (void)program.platform.ContainsFile(w.Tarnwick.LocDatabase.text, ".jpg");
  w.Tarnwick.SaveOnExit.checked = isSet && input.front() % 2 != 0;
  const std::string port = texts.empty() ? "" : texts.back();
  w.SetUpCom.CPort.text = port;
  Form_Unload(w);
  const auto [isSetAgain, latitudeAgain, longitudeAgain] = start();
  Require(w.SetUpCom.CPort.text == port, "the port is restored");
  // Storing a value just below 500 may round it up to 500, which is no home station.
  if (latitude >= 499 || longitude >= 499) return;
  const auto isSame = [](double a, double b) { return std::fabs(a - b) <= 1e-14 * std::fabs(a); };
  Require(
      isSet == isSetAgain && isSame(latitude, latitudeAgain) && isSame(longitude, longitudeAgain),
      "the home station is restored");
}
