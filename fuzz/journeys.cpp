// Journeys of user actions in all windows, with calls of the system that fail. One journey in eight
// runs twice; both runs must end with the same values and files.
//   Input  one action a line. A letter of kControls clicks that control; =TEXT after the letter
//          edits it instead. The other actions, some with a number or characters as =TEXT:
//   E  press Enter                    Q  select an entry of the Results window, P double-click it
//   R  characters of the receiver     G  a good sentence of the receiver
//   X  close a window by its frame    Z  start the program again, if it has ended
//   !  the call of the system of that number fails
#include <sstream>

#include "fuzz/invariants.h"
#include "record_printer.h"
#include "workspace/events/event_table.h"
#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"

namespace {

constexpr std::pair<char, std::string_view> kControls[] = {
    {'i', "InputText"},    {'u', "FindIt"},     {'l', "Lookup"},       {'h', "SetHome"},
    {'m', "GenList"},      {'M', "MakeList"},   {'L', "LocSites"},     {'g', "Gmap"},
    {'o', "OSMap"},        {'n', "UseNMEA"},    {'C', "Command1"},     {'f', "LLfmt"},
    {'a', "ShowAll"},      {'v', "SaveOnExit"}, {'k', "OK"},           {'1', "MinDisttext"},
    {'2', "MaxDistText"},  {'3', "ToBearText"}, {'4', "FromBearText"}, {'5', "Srchtext"},
    {'F', "ListFileName"}, {'c', "CPort"},      {'b', "Baud"},         {'d', "LocDatabase"}};

// Clicks a control that the user can reach: visible and enabled, in a visible window; with `text`,
// edits it.
void UseControl(Workspace& w, std::string_view name, const std::string* text) {
  const Event* event = nullptr;
  EachWindow(w, [&](WindowName title, const char*, auto& window) {
    EachControl(window, [&](std::string_view control, auto& state) {
      if constexpr (requires { state.enabled; }) {
        if (control != name || !window.visible || !state.visible || !state.enabled) return;
        if constexpr (requires { state.text; })
          if (text != nullptr) state.text = *text;
        if (text != nullptr) return;
        if constexpr (requires { state.checked; }) state.checked = !state.checked;
        event = FindEvent(title, control, UserAction::Click);
      }
    });
  });
  if (event != nullptr) event->run(w);
}

void Act(Program& program, const std::string& line) {
  Workspace& w = program.w;
  HeadlessSerial& serial = program.platform.serial;
  const char key = line.front();
  const bool hasText = line.size() > 1 && line[1] == '=';
  const std::string text = hasText ? line.substr(2) : "";
  const int number = RoundToInt16(TextToNumber(text));
  for (const auto& [letter, name] : kControls)
    if (key == letter) return UseControl(w, name, hasText ? &text : nullptr);
  if (key == 'E') UseControl(w, NameOf(w.Tarnwick.defaultButton), nullptr);
  if (key == 'R') Feed(serial, text + "\r");
  if (key == 'G') Feed(serial, kSentence);
  if (key == 'Z' && !w.Tarnwick.loaded) program.Start();
  if (key == '!') program.platform.faults = {.failAt = number};
  if (key == 'X')
    EachWindow(w, [&](WindowName name, const char*, const auto& window) {
      if (static_cast<int>(name) == number && window.loaded)
        FindEvent(name, "", UserAction::CloseFrame)->run(w);
    });
  const int entries = w.ShowList.visible ? static_cast<int>(w.ShowList.PR.items.size()) : 0;
  if ((key != 'Q' && key != 'P') || number < 0 || number >= entries) return;
  w.ShowList.PR.index = number;
  if (key == 'P') FindEvent(WindowName::ShowList, "PR", UserAction::DoubleClick)->run(w);
}

// Runs a journey; returns the values and files at the end.
std::string Run(const std::string& input) {
  Program program;
  program.Start();
  std::string references;
  for (const std::string& line : LinesOf(input)) {
    if (line.empty()) continue;
    Act(program, line);
    CheckRecord(program.w, input.size());
    // A listing changes Lat and Lon to those of its last record but not what the windows show.
    std::string now = program.w.Tarnwick.LocText.text + "|" + program.w.Tarnwick.NGRText.text;
    if (now != references) CheckPlace(program.w);
    references = std::move(now);
  }
  Require(program.Database() == kSites, "the database is never written");
  std::ostringstream shown;
  Printed printed;
  if (input.size() % 8 == 0) PrintChanges(&program.w, program.platform, printed, shown);
  return shown.str();
}

}  // namespace

void Try(const std::string& input) {
  const std::string shown = Run(input);
  if (!shown.empty())
    Require(shown == Run(input), "the same actions lead to the same record and windows");
}
