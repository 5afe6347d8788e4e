#include "sites/lookup/lookup.h"

#include "sites/database/line_reader.h"
#include "sites/database/text_search.h"
#include "workspace/commands/use_this.h"
#include "workspace/values/rounding.h"

void Lookup_Click(Workspace& w) {
  CloseDatabase(w);
  OpenResults(w);
  if (!OpenDatabase(w)) return;
  const CaseBlindText sought(w.Tarnwick.InputText.text);
  std::deque<ListEntry>& entries = w.ShowList.PR.items;
  bool isFull = false;
  for (std::string_view line; !isFull && ReadMatchingLine(w.database, sought, line);) {
    isFull = entries.size() >= kMostEntries;
    if (!isFull) entries.emplace_back(line);
  }
  CloseAndReportFailure(w);
  if (isFull)
    w.platform.MsgBox("Only the first " + std::to_string(kMostEntries) + " sites are shown");
}

void OpenResults(Workspace& w) {
  ResultsWindow& window = w.ShowList;
  window.loaded = true;
  window.visible = true;
  window.PR.columns = 4;
  window.left = ToSingle(w.Tarnwick.left + w.Tarnwick.width / 3.0);
  window.top = ToSingle(w.Tarnwick.top + w.Tarnwick.height / 4.0);
  window.OK.visible = true;
  w.platform.SetFocus(WindowName::ShowList);
}

void CloseResults(Workspace& w) {
  w.ListTop = RoundToInt32(w.ShowList.top);
  w.ListLeft = RoundToInt32(w.ShowList.left);
  w.ShowList = {};  // a fresh window is unloaded, hidden and empty
}

void ShowList::OK_Click(Workspace& w) {
  const ListBox& list = w.ShowList.PR;
  const bool picked = list.index >= 0 && static_cast<std::size_t>(list.index) < list.items.size();
  w.Tarnwick.InputText.text =
      picked ? std::string_view(list.items[static_cast<std::size_t>(list.index)]) : "";
  FindIt_Click(w);
  w.Tarnwick.FindIt.enabled = false;
  w.Tarnwick.defaultButton = &MainWindow::SetHome;
  w.platform.SetFocus(WindowName::Tarnwick);
}
