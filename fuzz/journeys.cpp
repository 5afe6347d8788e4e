// Journeys of user actions in all windows, each run twice.
//   Input  one action a line: a letter of kActions (any other character selects one of them too),
//          then the text that completes the action.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <sstream>
#include <string>

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
    // Paths of the database and of other files; only Sites.dat is a database.
    {'D', R"(set LocDatabase C:/GEOG/sites.DAT)"},
    {'E', R"(set LocDatabase c:\\geog\\Link.dat)"},
    {'G', R"(set LocDatabase c:\\geog)"},
    {'H', R"(set LocDatabase /dev/zero)"},
    {'A', R"(set ListFileName c:\\geog\\List.txt)"},
    {'F', R"(set ListFileName c:\\GEOG\\..\\geog\\sites.dat)"},
    {'I', R"(set ListFileName c:\\geog\\Link.dat)"},
    {'J', R"(set ListFileName c:\\geog\\Hard.dat)"},
    {'K', R"(set ListFileName c:\\geog)"},
    {'N', R"(set ListFileName /dev/full)"},
    {'O', R"(set ListFileName )"},
};

constexpr const char* kSites =
    "Alpha Hill~IO91VL\r\nBeacon~SU12 3456~mast\r\nOdd~IO91WM4\r\nNone~\r\nno site\r\n"
    "Line~51 30N 1 15W\r\nFar~ZZ99999999999\r\nENDENDEND\r\nBehind~TQ3080\r\n";

void MakeDatabase() {
  std::ofstream(GeogFile("Sites.dat"), std::ios::binary) << kSites;
  std::filesystem::create_symlink("Sites.dat", GeogFile("Link.dat"));
  std::filesystem::create_hard_link(GeogFile("Sites.dat"), GeogFile("Hard.dat"));
  std::filesystem::current_path(Folder());  // a listing without a path is written there
}

std::string ActionOf(const std::string& line) {
  const auto* at = std::find_if(std::begin(kActions), std::end(kActions),
                                [&](const auto& row) { return row.letter == line[0]; });
  if (at == std::end(kActions))
    at = &kActions[static_cast<unsigned char>(line[0]) % std::size(kActions)];
  const std::string action = at->action;
  const bool isPath = action == "set ListFileName ";
  return action.back() == ' ' && !isPath ? action + ToUtf8(line.substr(1)) : action;
}

// Runs a journey; returns what it shows at the end and the contents of its listings.
std::string Run(const std::string& actions, const std::function<void(const Workspace&)>& check) {
  std::filesystem::remove(GeogFile("List.txt"));
  std::filesystem::remove(GeogFile("SITELIST.TXT"));
  std::filesystem::remove("LISTFILE.TXT");
  std::istringstream in(actions);
  std::ostringstream shown;
  std::ostringstream complaints;
  RunJourney(in, shown, complaints, check);
  Require(ContentOf(GeogFile("Hard.dat")) == kSites, "the database is never written");
  return shown.str() + ContentOf(GeogFile("List.txt")) + ContentOf(GeogFile("SITELIST.TXT"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool kMade = (MakeDatabase(), true);
  (void)kMade;
  std::string actions = "home " + Folder().string() + "\nport 9\nsetting CPort CP COM9\nstart\n";
  for (const std::string& line : LinesOf({data, data + size}))
    if (!line.empty()) actions += ActionOf(line) + "\n";
  actions += "show\n";
  std::string references;
  const auto check = [&](const Workspace& w) {
    CheckRecord(w, actions.size());
    // A listing changes Lat and Lon to those of its last record but not what the windows show.
    const std::string now = w.Tarnwick.LocText.text + "|" + w.Tarnwick.NGRText.text;
    if (now != references) CheckPlace(w);
    references = now;
  };
  std::string shown;
  Bounded([&] { shown = Run(actions, check); });
  Require(shown == Run(actions, {}), "the same actions give the same record and windows");
  return 0;
}
