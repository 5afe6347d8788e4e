#include "workspace/events/main_window_layout.h"

#include "gps/real_time.h"
#include "sites/lookup/lookup.h"

namespace {

void ShowListingControls(MainWindow& main, bool visible) {
  for (TextBox* box : {&main.MinDisttext, &main.MaxDistText, &main.FromBearText, &main.ToBearText,
                       &main.Srchtext, &main.ListFileName})
    box->visible = visible;
  for (Label* label : {&main.Label3, &main.Label7, &main.Label8, &main.Label9, &main.Label10,
                       &main.Label11, &main.Label13})
    label->visible = visible;
  main.ShowAll.visible = visible;
  main.MakeList.visible = visible;
}

}  // namespace

void GenList_Click(Workspace& w) {
  MainWindow& main = w.Tarnwick;
  main.height = kListingHeight;
  main.GenList.enabled = false;
  ShowListingControls(main, true);
  main.defaultButton = &MainWindow::MakeList;
  main.FindIt.visible = false;
  main.Lookup.visible = false;
  main.SetHome.enabled = false;
  PointingWindow& pointing = w.BearingCalc;
  for (TextBox* box :
       {&pointing.DistText, &pointing.BearText, &pointing.BackBearText, &pointing.UncertText})
    box->text.clear();
  for (TextBox* box : {&main.NGRText, &main.LocText, &main.LLText}) box->text.clear();
  pointing.C.operations.clear();
  CloseResults(w);
}

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
