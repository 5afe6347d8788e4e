#include "workspace/events/input_box_click.h"

#include "gps/real_time.h"
#include "sites/lookup/results.h"
#include "workspace/events/listing_layout.h"

void InputText_Click(Workspace& w) {
  MainWindow& main = w.Tarnwick;
  CloseResults(w);
  main.FindIt.visible = true;
  main.FindIt.enabled = true;
  main.defaultButton = &MainWindow::FindIt;
  main.Lookup.visible = true;
  main.InputText.fore = kBlack;
  main.InputText.text.clear();
  w.BearingCalc.Ipt.text.clear();
  w.BearingCalc.C.operations.clear();
  main.SetHome.enabled = false;
  ShowListingControls(main, false);
  EndRealTime(w);
}
