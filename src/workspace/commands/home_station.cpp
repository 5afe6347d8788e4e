#include "workspace/commands/home_station.h"

#include "workspace/record/control_names.h"

void SetHome_Click(Workspace& w) {
  MainWindow& main = w.Tarnwick;
  PointingWindow& pointing = w.BearingCalc;
  if (!main.MakeList.visible) main.GenList.enabled = true;
  w.BaseLat = w.Lat;
  w.BaseLong = w.Lon;
  w.BaseName = main.InputText.text;
  pointing.Ipt.text.clear();
  w.Baseresolution = w.Resolution;
  pointing.visible = true;
  main.BaseLocLbl.caption =
      "Home Station:  " + w.sitename + " - " + main.LocText.text + "  " + main.NGRText.text;
  EachControl(pointing, [](const char* /*name*/, auto& control) { control.visible = true; });
  w.BaseSet = kTrue;
  main.LocSites.enabled = true;
  pointing.caption = main.BaseLocLbl.caption;
}
