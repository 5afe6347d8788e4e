// Journeys of user actions in all windows, with calls of the system that fail. One journey in eight
// runs twice; both runs must end with the same values and files.
//   Input  one action a line: a letter of kActions (any other character selects one of them too),
//          then the text that completes the action.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <sstream>
#include <string>

#include "escaped_text.h"
#include "fuzz/invariants.h"
#include "journey_driver.h"
#include "platform/code_page.h"

namespace {

constexpr struct {
  char letter;
  const char* action;  // the rest of the line is appended if it ends in a blank
} kActions[] = {
    {'t', "type "},
    {'e', "enter"},
    {'i', "click InputText"},
    {'u', "click FindIt"},
    {'l', "click Lookup"},
    {'h', "click SetHome"},
    {'m', "click GenList"},
    {'M', "click MakeList"},
    {'L', "click LocSites"},
    {'g', "click Gmap"},
    {'o', "click OSMap"},
    {'n', "click UseNMEA"},
    {'C', "click Command1"},
    {'f', "click LLfmt"},
    {'a', "tick ShowAll"},
    {'v', "tick SaveOnExit"},
    {'k', "click OK"},
    {'s', "select "},
    {'p', "pick "},
    {'1', "set MinDisttext "},
    {'2', "set MaxDistText "},
    {'3', "set FromBearText "},
    {'4', "set ToBearText "},
    {'5', "set Srchtext "},
    {'P', "set CPort "},
    {'B', "set Baud "},
    {'r', "feed "},
    {'R', R"(feed $GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n)"},
    {'q', "frame BearingCalc"},
    {'w', "frame ShowList"},
    {'x', "frame SetUpCom"},
    {'z', "close"},
    {'Z', "start"},
    {'!', "fail "},
    {'D', "set LocDatabase C:/GEOG/sites.DAT"},
    {'G', "set LocDatabase c:\\\\geog\\\\"},
    {'A', "set ListFileName c:\\\\geog\\\\List.txt"},
    {'F', "set ListFileName c:\\\\GEOG/sites.dat"},
    {'O', "set ListFileName"},
};

std::string ActionOf(const std::string& line) {
  const auto* at = std::find_if(std::begin(kActions), std::end(kActions),
                                [&](const auto& row) { return row.letter == line[0]; });
  if (at == std::end(kActions))
    at = &kActions[static_cast<unsigned char>(line[0]) % std::size(kActions)];
  const std::string action = at->action;
  return action.back() == ' ' ? action + ToUtf8(line.substr(1)) : action;
}

// Runs a journey; returns the values and files that it shows at the end.
std::string Run(const std::string& actions, const std::function<void(const Workspace&)>& check) {
  std::istringstream in(actions);
  std::ostringstream shown;
  std::ostringstream complaints;
  RunJourney(in, shown, complaints, check);
  return shown.str();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string kStart = "store c:\\\\geog\\\\Sites.dat " + Escaped(kSites) +
                                    "\nport 9\nsetting CPort CP COM9\nstart\n";
  std::string actions = kStart;
  for (const std::string& line : LinesOf({data, data + size}))
    if (!line.empty()) actions += ActionOf(line) + "\n";
  std::string references;
  const auto check = [&](const Workspace& w) {
    CheckRecord(w, actions.size());
    // A listing changes Lat and Lon to those of its last record but not what the windows show.
    const std::string now = w.Tarnwick.LocText.text + "|" + w.Tarnwick.NGRText.text;
    if (now != references) CheckPlace(w);
    references = now;
    const auto& platform = static_cast<const HeadlessPlatform&>(w.platform);
    Require(platform.files->at(kDefaultDatabase) == kSites, "the database is never written");
  };
  const bool twice = size % 8 == 0;
  if (twice) actions += "show\n";
  std::string shown;
  Bounded([&] { shown = Run(actions, check); });
  if (twice)
    Require(shown == Run(actions, {}), "the same actions give the same record and windows");
  return 0;
}
