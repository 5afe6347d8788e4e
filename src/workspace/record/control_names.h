// The names of all controls: a table for each window, in the order in which the user reads and Tab
// visits them. Front ends, tests, scripts and the event table find controls by these names.
#pragma once

#include <tuple>
#include <type_traits>
#include <utility>

#include "platform/platform.h"
#include "workspace/record/window_state.h"

#define CONTROL(name) std::pair(#name, &Record::name)

// The table of a window: a tuple of pairs, the name of a control and its member of the record.
template <class Record>
inline constexpr auto kControlsOf = [] {
  if constexpr (std::is_same_v<Record, MainWindow>) {
    return std::tuple{
        CONTROL(Label14),      CONTROL(Label2),     CONTROL(Label1),      CONTROL(LocDatabase),
        CONTROL(InputText),    CONTROL(Label5),     CONTROL(Xdim),        CONTROL(Ydim),
        CONTROL(Frame1),       CONTROL(FindIt),     CONTROL(Lookup),      CONTROL(Label15),
        CONTROL(LocText),      CONTROL(NGRText),    CONTROL(EastNorth),   CONTROL(SetHome),
        CONTROL(GenList),      CONTROL(Gmap),       CONTROL(OSMap),       CONTROL(UseNMEA),
        CONTROL(LocSites),     CONTROL(LLText),     CONTROL(LLfmt),       CONTROL(Label4),
        CONTROL(BaseLocLbl),   CONTROL(SaveOnExit), CONTROL(Label10),     CONTROL(Label3),
        CONTROL(MinDisttext),  CONTROL(Label7),     CONTROL(MaxDistText), CONTROL(Label8),
        CONTROL(FromBearText), CONTROL(Label9),     CONTROL(ToBearText),  CONTROL(MakeList),
        CONTROL(Label13),      CONTROL(Srchtext),   CONTROL(Label11),     CONTROL(ListFileName),
        CONTROL(ShowAll)};
  }
  if constexpr (std::is_same_v<Record, PointingWindow>) {
    return std::tuple{CONTROL(Ipt),          CONTROL(Label5), CONTROL(BearText), CONTROL(Label6),
                      CONTROL(BackBearText), CONTROL(Label4), CONTROL(DistText), CONTROL(Label12),
                      CONTROL(UncertText),   CONTROL(C)};
  }
  if constexpr (std::is_same_v<Record, ResultsWindow>) return std::tuple{CONTROL(PR), CONTROL(OK)};
  if constexpr (std::is_same_v<Record, SetUpWindow>) {
    return std::tuple{CONTROL(Label2), CONTROL(CPort),    CONTROL(Label1),
                      CONTROL(Baud),   CONTROL(Command1), CONTROL(Text1)};
  }
}();

#undef CONTROL

// Calls visit(name, control) for every control of a window.
template <class Record>
constexpr void EachControl(Record& window, auto&& visit) {
  std::apply([&](const auto&... row) { (visit(row.first, window.*row.second), ...); },
             kControlsOf<std::remove_const_t<Record>>);
}

// Calls visit(windowName, name, window) for each of the four windows of a workspace.
constexpr void EachWindow(auto& w, auto&& visit) {
  visit(WindowName::Tarnwick, "Tarnwick", w.Tarnwick);
  visit(WindowName::BearingCalc, "BearingCalc", w.BearingCalc);
  visit(WindowName::ShowList, "ShowList", w.ShowList);
  visit(WindowName::SetUpCom, "SetUpCom", w.SetUpCom);
}

// Returns the name of a control, such as "InputText" for NameOf(&MainWindow::InputText).
template <class Record, class Control>
constexpr const char* NameOf(Control Record::*member) {
  const char* name = nullptr;
  const auto compare = [&](const auto& row) {
    if constexpr (std::is_same_v<decltype(row.second), Control Record::*>)
      if (row.second == member) name = row.first;
  };
  std::apply([&](const auto&... row) { (compare(row), ...); }, kControlsOf<Record>);
  return name;
}
