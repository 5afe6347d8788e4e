#include "workspace/events/start_and_exit.h"

#include <string>

#include "gps/port_setup.h"
#include "sites/database/line_reader.h"
#include "workspace/commands/home_station.h"
#include "workspace/commands/place_display.h"
#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"

namespace {

// Default when nothing is stored. A latitude or longitude of 500 or more means that there is
// no home station.
constexpr const char* kNoHome = "999";
constexpr double kHomeLimit = 500;

// Makes Lat and Lon, read from the settings, the home station and shows them. Distance and bearing
// show zeros until the first Use This.
void RestoreHome(Workspace& w) {
  MainWindow& main = w.Tarnwick;
  main.InputText.text = "Base    Lat: " + FormatPicture(w.Lat, "###.###") +
                        "  Long: " + FormatPicture(w.Lon, "####.###");
  w.BearingCalc.Ipt.text = main.InputText.text;
  ShowPlaceByLatLong(w);
  main.SetHome.enabled = true;
  ShowDistanceAndBearing(w, kLatLong);
  w.sitename.clear();
  SetHome_Click(w);
}

}  // namespace

void Form_Load(Workspace& w) {
  Platform& platform = w.platform;
  MainWindow& main = w.Tarnwick;
  w.Lat = TextToNumber(platform.ReadSetting("Home", "Lat", kNoHome));
  w.Lon = TextToNumber(platform.ReadSetting("Home", "Long", kNoHome));
  if (w.Lat < kHomeLimit && w.Lon < kHomeLimit) RestoreHome(w);

  SetUpCom::Form_Load(w);
  w.SetUpCom.CPort.text = platform.ReadSetting("CPort", "CP", "1");
  w.SetUpCom.Baud.text = platform.ReadSetting("CPort", "Baud", "9600");

  main.top = ToSingle(TextToNumber(platform.ReadSetting("FormPLace", "Top", "100")));
  main.left = ToSingle(TextToNumber(platform.ReadSetting("FormPLace", "Left", "0")));
  main.height = kLookupHeight;
  w.BearingCalc.left = ToSingle(main.width * 0.8 + main.left);
  w.BearingCalc.top = main.top - 2000;
  w.BearingCalc.loaded = true;

  main.LocDatabase.text = platform.ReadSetting("LocDB", "DB", kDefaultDatabase);
  main.UseNMEA.caption = kRealTimeCaption;
  main.OSMap.enabled = platform.ContainsFile(w.MapPath, ".jpg");
  main.loaded = true;
  main.visible = true;
}

void Form_Unload(Workspace& w) {
  Platform& platform = w.platform;
  platform.Serial().Close();
  platform.StoreSetting("FormPLace", "Left", NumberToText(w.Tarnwick.left));
  platform.StoreSetting("FormPLace", "Top", NumberToText(w.Tarnwick.top));
  platform.StoreSetting("CPort", "Baud", w.SetUpCom.Baud.text);
  platform.StoreSetting("CPOrt", "CP", w.SetUpCom.CPort.text);
  platform.StoreSetting("LocDB", "DB", w.Tarnwick.LocDatabase.text);
  if (w.Tarnwick.SaveOnExit.checked) {
    platform.StoreSetting("Home", "Lat", NumberToText(w.BaseLat));
    platform.StoreSetting("Home", "Long", NumberToText(w.BaseLong));
  }
  CloseDatabase(w);
  w.ShowList = {};
  w.SetUpCom = {};
  w.BearingCalc = {};
  w.Tarnwick.visible = false;
  w.Tarnwick.loaded = false;
}
