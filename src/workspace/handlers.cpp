#include "workspace/handlers.h"

#include <algorithm>
#include <iterator>

#include "geo/lat_long_display.h"
#include "gps/port_setup.h"
#include "gps/real_time.h"
#include "pointing/external_maps.h"
#include "sites/listing.h"
#include "sites/results.h"
#include "sites/site_database.h"
#include "workspace/home_station.h"
#include "workspace/use_this.h"
#include "workspace/window_modes.h"

namespace {

constexpr Handler kClicks[] = {
    {WindowName::Tarnwick, "InputText", InputText_Click},
    {WindowName::Tarnwick, "FindIt", FindIt_Click, true},
    {WindowName::Tarnwick, "Lookup", Lookup_Click, true},
    {WindowName::Tarnwick, "SetHome", SetHome_Click},
    {WindowName::Tarnwick, "GenList", GenList_Click},
    {WindowName::Tarnwick, "Gmap", Gmap_Click},
    {WindowName::Tarnwick, "OSMap", OSMap_Click},
    {WindowName::Tarnwick, "UseNMEA", UseNMEA_Click},
    {WindowName::Tarnwick, "LocSites", LocSites_Click, true},
    {WindowName::Tarnwick, "LLfmt", LLfmt_Click},
    {WindowName::Tarnwick, "MakeList", MakeList_Click, true},
    {WindowName::Tarnwick, "ShowAll", ShowAll_Click},
    {WindowName::ShowList, "OK", ShowList::OK_Click, true},
    {WindowName::SetUpCom, "Command1", SetUpCom::Command1_Click},
};

}  // namespace

const Handler* ClickHandler(WindowName window, std::string_view control) {
  const auto* const at =
      std::find_if(std::begin(kClicks), std::end(kClicks), [&](const Handler& handler) {
        return handler.window == window && handler.control == control;
      });
  return at == std::end(kClicks) ? nullptr : at;
}
