#include "workspace/events/event_table.h"

#include "geo/lat_long.h"
#include "gps/port_setup.h"
#include "gps/real_time.h"
#include "pointing/external_maps.h"
#include "sites/listing/listing.h"
#include "sites/lookup/lookup.h"
#include "workspace/commands/home_station.h"
#include "workspace/commands/use_this.h"
#include "workspace/events/main_window_layout.h"
#include "workspace/events/start_and_exit.h"
#include "workspace/record/control_names.h"

namespace {

using enum UserAction;
using enum WindowName;

constexpr Event kEvents[] = {
    {Tarnwick, NameOf(&MainWindow::InputText), Click, InputText_Click, false, "Alt+I"},
    {Tarnwick, NameOf(&MainWindow::FindIt), Click, FindIt_Click, true},
    {Tarnwick, NameOf(&MainWindow::Lookup), Click, Lookup_Click, true},
    {Tarnwick, NameOf(&MainWindow::SetHome), Click, SetHome_Click},
    {Tarnwick, NameOf(&MainWindow::GenList), Click, GenList_Click},
    {Tarnwick, NameOf(&MainWindow::Gmap), Click, Gmap_Click},
    {Tarnwick, NameOf(&MainWindow::OSMap), Click, OSMap_Click},
    {Tarnwick, NameOf(&MainWindow::UseNMEA), Click, UseNMEA_Click},
    {Tarnwick, NameOf(&MainWindow::LocSites), Click, LocSites_Click, true},
    {Tarnwick, NameOf(&MainWindow::LLfmt), Click, LLfmt_Click},
    {Tarnwick, NameOf(&MainWindow::MakeList), Click, MakeList_Click, true},
    {Tarnwick, NameOf(&MainWindow::ShowAll), Click, ShowAll_Click},
    {Tarnwick, "", CloseFrame, Form_Unload},
    {BearingCalc, "", CloseFrame, [](Workspace& w) { w.BearingCalc.visible = false; }},
    {ShowList, NameOf(&ResultsWindow::PR), DoubleClick, ShowList::OK_Click, true},
    {ShowList, NameOf(&ResultsWindow::OK), Click, ShowList::OK_Click, true},
    // Unlike CloseResults, this stores no position.
    {ShowList, "", CloseFrame, [](Workspace& w) { w.ShowList = {}; }},
    {SetUpCom, NameOf(&SetUpWindow::Command1), Click, SetUpCom::Command1_Click},
    {SetUpCom, "", CloseFrame, SetUpCom::CloseFrame},
};

}  // namespace

const Event* FindEvent(WindowName window, std::string_view control, UserAction action) {
  for (const Event& e : kEvents)
    if (e.window == window && e.control == control && e.action == action) return &e;
  return nullptr;
}
