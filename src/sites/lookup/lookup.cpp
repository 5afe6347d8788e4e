#include "sites/lookup/lookup.h"

#include "sites/database/line_reader.h"
#include "sites/database/text_search.h"
#include "sites/lookup/results.h"

void Lookup_Click(Workspace& w) {
  CloseDatabase(w);
  OpenResults(w);
  if (!OpenDatabase(w)) return;
  const CaseBlindText sought(w.Tarnwick.InputText.text);
  std::string_view line;
  ListEntries& entries = w.ShowList.PR.items;
  bool isFull = false;
  while (!isFull && ReadMatchingLine(w.database, sought, line)) {
    isFull = entries.size() >= kMostEntries;
    if (!isFull) entries.Add(line);
  }
  const bool failed = w.database.failed;
  CloseDatabase(w);
  if (failed) ReportMissingDatabase(w);
  if (isFull) w.platform.MsgBox("Only the first 10000000 sites are shown");
}
