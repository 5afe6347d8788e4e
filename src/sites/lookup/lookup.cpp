#include "sites/lookup/lookup.h"

#include <algorithm>

#include "sites/database/line_reader.h"
#include "sites/database/skip_lines.h"
#include "sites/lookup/results.h"

void SearchDatabase(Workspace& w) {
  CloseDatabase(w);
  OpenResults(w);
  if (!OpenDatabase(w)) return;
  const CaseBlindText sought(w.Tarnwick.InputText.text);
  std::string_view line;
  ListEntries& entries = w.ShowList.PR.items;
  bool isFull = false;
  for (;;) {
    const std::size_t firstMatch = SkipNonMatchingLines(w.database, sought);
    if (!ReadLine(w.database, line)) break;
    const std::string_view rest = line.substr(std::min(firstMatch, line.size()));
    if (!BeginsWith(rest, sought) && !Matches(line, sought)) continue;
    isFull = entries.size() >= kMostEntries;
    if (isFull) break;
    entries.Add(line);
  }
  const bool failed = w.database.failed;
  CloseDatabase(w);
  if (failed) ReportMissingDatabase(w);
  if (isFull) w.platform.MsgBox("Only the first 10000000 sites are shown");
}

void Lookup_Click(Workspace& w) {
  SearchDatabase(w);
}
