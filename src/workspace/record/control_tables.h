// The names of the controls: one table a window, in the order in which the eye and the Tab key go
// through it. Front ends, tests and scripts find controls by these names.
#pragma once

#include <string_view>
#include <tuple>
#include <type_traits>

#include "workspace/record/workspace.h"

// One control of a window.
template <class WindowRecord, class Control>
struct NamedControl {
  const char* name;
  Control WindowRecord::*member;
};
template <class WindowRecord, class Control>
NamedControl(const char*, Control WindowRecord::*) -> NamedControl<WindowRecord, Control>;

#define TARNWICK_CONTROL(window, name) \
  NamedControl { #name, &window::name }

inline constexpr std::tuple kMainWindowControls{
    TARNWICK_CONTROL(MainWindow, Label14),
    TARNWICK_CONTROL(MainWindow, Label2),
    TARNWICK_CONTROL(MainWindow, Label1),
    TARNWICK_CONTROL(MainWindow, LocDatabase),
    TARNWICK_CONTROL(MainWindow, InputText),
    TARNWICK_CONTROL(MainWindow, Label5),
    TARNWICK_CONTROL(MainWindow, Xdim),
    TARNWICK_CONTROL(MainWindow, Ydim),
    TARNWICK_CONTROL(MainWindow, Frame1),
    TARNWICK_CONTROL(MainWindow, FindIt),
    TARNWICK_CONTROL(MainWindow, Lookup),
    TARNWICK_CONTROL(MainWindow, Label15),
    TARNWICK_CONTROL(MainWindow, LocText),
    TARNWICK_CONTROL(MainWindow, NGRText),
    TARNWICK_CONTROL(MainWindow, EastNorth),
    TARNWICK_CONTROL(MainWindow, SetHome),
    TARNWICK_CONTROL(MainWindow, GenList),
    TARNWICK_CONTROL(MainWindow, Gmap),
    TARNWICK_CONTROL(MainWindow, OSMap),
    TARNWICK_CONTROL(MainWindow, UseNMEA),
    TARNWICK_CONTROL(MainWindow, LocSites),
    TARNWICK_CONTROL(MainWindow, LLText),
    TARNWICK_CONTROL(MainWindow, LLfmt),
    TARNWICK_CONTROL(MainWindow, Label4),
    TARNWICK_CONTROL(MainWindow, BaseLocLbl),
    TARNWICK_CONTROL(MainWindow, SaveOnExit),
    TARNWICK_CONTROL(MainWindow, Label10),
    TARNWICK_CONTROL(MainWindow, Label3),
    TARNWICK_CONTROL(MainWindow, MinDisttext),
    TARNWICK_CONTROL(MainWindow, Label7),
    TARNWICK_CONTROL(MainWindow, MaxDistText),
    TARNWICK_CONTROL(MainWindow, Label8),
    TARNWICK_CONTROL(MainWindow, FromBearText),
    TARNWICK_CONTROL(MainWindow, Label9),
    TARNWICK_CONTROL(MainWindow, ToBearText),
    TARNWICK_CONTROL(MainWindow, MakeList),
    TARNWICK_CONTROL(MainWindow, Label13),
    TARNWICK_CONTROL(MainWindow, Srchtext),
    TARNWICK_CONTROL(MainWindow, Label11),
    TARNWICK_CONTROL(MainWindow, ListFileName),
    TARNWICK_CONTROL(MainWindow, ShowAll)};

inline constexpr std::tuple kPointingWindowControls{
    TARNWICK_CONTROL(PointingWindow, Ipt),
    TARNWICK_CONTROL(PointingWindow, Label5),
    TARNWICK_CONTROL(PointingWindow, BearText),
    TARNWICK_CONTROL(PointingWindow, Label6),
    TARNWICK_CONTROL(PointingWindow, BackBearText),
    TARNWICK_CONTROL(PointingWindow, Label4),
    TARNWICK_CONTROL(PointingWindow, DistText),
    TARNWICK_CONTROL(PointingWindow, Label12),
    TARNWICK_CONTROL(PointingWindow, UncertText),
    TARNWICK_CONTROL(PointingWindow, C)};

inline constexpr std::tuple kResultsWindowControls{
    TARNWICK_CONTROL(ResultsWindow, PR),
    TARNWICK_CONTROL(ResultsWindow, OK)};

inline constexpr std::tuple kSetUpWindowControls{
    TARNWICK_CONTROL(SetUpWindow, Label2),
    TARNWICK_CONTROL(SetUpWindow, CPort),
    TARNWICK_CONTROL(SetUpWindow, Label1),
    TARNWICK_CONTROL(SetUpWindow, Baud),
    TARNWICK_CONTROL(SetUpWindow, Command1),
    TARNWICK_CONTROL(SetUpWindow, Text1)};

#undef TARNWICK_CONTROL

// The table of a window.
template <class WindowRecord>
constexpr const auto& ControlsOf() {
  if constexpr (std::is_same_v<WindowRecord, MainWindow>)
    return kMainWindowControls;
  else if constexpr (std::is_same_v<WindowRecord, PointingWindow>)
    return kPointingWindowControls;
  else if constexpr (std::is_same_v<WindowRecord, ResultsWindow>)
    return kResultsWindowControls;
  else
    return kSetUpWindowControls;
}

// Calls visit(name, control) for every control of a window.
template <class WindowRecord>
constexpr void EachControl(WindowRecord& window, auto&& visit) {
  std::apply([&](const auto&... row) { (visit(row.name, window.*row.member), ...); },
             ControlsOf<std::remove_const_t<WindowRecord>>());
}

// Calls visit(windowName, name, window) for each of the four windows of a run.
constexpr void EachWindow(auto& w, auto&& visit) {
  visit(WindowName::Tarnwick, "Tarnwick", w.Tarnwick);
  visit(WindowName::BearingCalc, "BearingCalc", w.BearingCalc);
  visit(WindowName::ShowList, "ShowList", w.ShowList);
  visit(WindowName::SetUpCom, "SetUpCom", w.SetUpCom);
}

// The name of a control, such as NameOf(&MainWindow::InputText).
template <class WindowRecord, class Control>
constexpr const char* NameOf(Control WindowRecord::*member) {
  const char* name = nullptr;
  std::apply(
      [&](const auto&... row) {
        const auto compare = [&](const auto& candidate) {
          if constexpr (std::is_same_v<decltype(candidate.member), Control WindowRecord::*>)
            if (candidate.member == member) name = candidate.name;
        };
        (compare(row), ...);
      },
      ControlsOf<WindowRecord>());
  return name;
}
