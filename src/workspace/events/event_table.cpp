#include "workspace/events/event_table.h"

#include <algorithm>
#include <iterator>

#include "geo/lat_long_display.h"
#include "gps/port_setup.h"
#include "gps/real_time.h"
#include "pointing/external_maps.h"
#include "sites/listing/listing.h"
#include "sites/lookup/lookup.h"
#include "sites/lookup/results.h"
#include "workspace/commands/home_station.h"
#include "workspace/commands/use_this.h"
#include "workspace/events/input_box_click.h"
#include "workspace/events/listing_layout.h"
#include "workspace/events/start_and_exit.h"
#include "workspace/record/control_tables.h"

namespace {

void HidePointing(Workspace& w) {
  w.BearingCalc.visible = false;
}

// Discards the list, unlike a command that closes the window, and records no position.
void UnloadResults(Workspace& w) {
  w.ShowList = {};
}

using enum UserAction;
using enum WindowName;

constexpr Event kEvents[] = {
    {Tarnwick, "InputText", Click, InputText_Click, false, "Alt+I"},
    {Tarnwick, "FindIt", Click, FindIt_Click, true},
    {Tarnwick, "Lookup", Click, Lookup_Click, true},
    {Tarnwick, "SetHome", Click, SetHome_Click},
    {Tarnwick, "GenList", Click, GenList_Click},
    {Tarnwick, "Gmap", Click, Gmap_Click},
    {Tarnwick, "OSMap", Click, OSMap_Click},
    {Tarnwick, "UseNMEA", Click, UseNMEA_Click},
    {Tarnwick, "LocSites", Click, LocSites_Click, true},
    {Tarnwick, "LLfmt", Click, LLfmt_Click},
    {Tarnwick, "MakeList", Click, MakeList_Click, true},
    {Tarnwick, "ShowAll", Click, ShowAll_Click},
    {Tarnwick, "", CloseFrame, Form_Unload},
    {BearingCalc, "", CloseFrame, HidePointing},
    {ShowList, "PR", DoubleClick, ShowList::PR_DblClick, true},
    {ShowList, "OK", Click, ShowList::OK_Click, true},
    {ShowList, "", CloseFrame, UnloadResults},
    {SetUpCom, "Command1", Click, SetUpCom::Command1_Click},
    {SetUpCom, "", CloseFrame, SetUpCom::CloseFrame},
};

// Whether every row names a control of its window.
constexpr bool NamesAreRight() {
  for (const Event& event : kEvents) {
    bool found = event.control.empty() == (event.action == CloseFrame) && event.control.empty();
    const auto search = [&](WindowName window, const auto& controls) {
      std::apply(
          [&](const auto&... row) {
            ((found |= window == event.window && event.control == row.name), ...);
          },
          controls);
    };
    search(Tarnwick, kMainWindowControls);
    search(BearingCalc, kPointingWindowControls);
    search(ShowList, kResultsWindowControls);
    search(SetUpCom, kSetUpWindowControls);
    if (!found) return false;
  }
  return true;
}
static_assert(NamesAreRight());

}  // namespace

const Event* FindEvent(WindowName window, std::string_view control, UserAction action) {
  const auto* const row = std::find_if(std::begin(kEvents), std::end(kEvents), [&](const Event& e) {
    return e.window == window && e.control == control && e.action == action;
  });
  return row == std::end(kEvents) ? nullptr : row;
}

const Event& CloseFrameEvent(WindowName window) {
  return *FindEvent(window, "", CloseFrame);
}
