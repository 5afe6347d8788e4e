#include "sites/listing/listing.h"

#include "sites/database/line_reader.h"
#include "sites/listing/fast_listing.h"
#include "sites/listing/listing_row.h"
#include "sites/lookup/results.h"
#include "workspace/values/number_text.h"

namespace {

constexpr std::size_t kWriteSize = std::size_t{1} << 18;
constexpr double kUnlimitedDistance = 9999;  // the header omits this limit and larger ones

// The listing file and the rows not yet written to it.
struct ListingFile {
  std::unique_ptr<File> file;
  std::string pending;
  bool failed = false;
};

void Flush(ListingFile& out) {
  if (!out.file->Write(out.pending)) out.failed = true;
  out.pending.clear();
}

void EndLine(ListingFile& out) {
  out.pending += '\r';
  out.pending += '\n';
  if (out.pending.size() >= kWriteSize) Flush(out);
}

void WriteLine(ListingFile& out, std::string_view line) {
  out.pending += line;
  EndLine(out);
}

// Whether everything reached the file.
bool Close(ListingFile& out) {
  Flush(out);
  return out.file->Close() && !out.failed;
}

void WriteHeader(Workspace& w, const Limits& limits, ListingFile& out) {
  WriteLine(out, "Generated from    Tarnwick  Brelk");
  WriteLine(out, FormatDate(w.platform.Today()));
  WriteLine(out, "");
  WriteLine(out, "Distance and Bearings from " + w.BaseName);
  WriteLine(out, "");
  if (limits.minimum > 0) WriteLine(out, "Minimum distance " + NumberToText(limits.minimum));
  if (limits.maximum < kUnlimitedDistance)
    WriteLine(out, "Maximum distance " + NumberToText(limits.maximum));
  if (limits.from > 0 || limits.to < 360)
    WriteLine(out, "Bearings restricted to sites within" + NumberToText(limits.from) + " to " +
                       NumberToText(limits.to) + " deg");
  if (!w.Tarnwick.Srchtext.text.empty())
    WriteLine(out, "Only Sites with   '" + w.Tarnwick.Srchtext.text + "'   in their name");
  WriteLine(out, "");
  WriteLine(
      out,
      "   Sitename                                     Locator       NGR         To     Back  "
      "         Distance");
  WriteLine(out, "");
}

void WriteRows(Workspace& w, const Limits& limits, ListingFile& out) {
  ListingAccelerator fast = AcceleratorFor(w, limits);
  SiteRecord record;
  Columns columns;
  std::int32_t rows = 0;
  std::string_view line;
  while (!out.failed && ReadLine(w.database, line)) {
    if (!ReadRecord(line, record)) continue;
    std::optional<bool> listed = TryFastRow(fast, record, out.pending);
    if (!listed.has_value()) {
      ReplayDeferred(fast, w, columns);
      listed = AppendExactRow(w, record, limits, columns, out.pending);
    }
    if (!*listed) continue;
    EndLine(out);
    if (++rows % 10 == 0) EndLine(out);
  }
  ReplayDeferred(fast, w, columns);
}

// Writes the file; false if it can't be created, is the database itself, or lost a write.
bool WriteListing(Workspace& w, const std::string& path) {
  if (w.platform.IsSameFile(path, w.Tarnwick.LocDatabase.text)) return false;
  ListingFile out;
  out.file = w.platform.OpenToWrite(path);
  if (!out.file) return false;
  const Limits limits = LimitsOf(w.Tarnwick);
  WriteHeader(w, limits, out);
  WriteRows(w, limits, out);
  return Close(out) && !w.database.failed;
}

}  // namespace

void MakeList_Click(Workspace& w) {
  if (!OpenDatabase(w)) return;
  std::string& path = w.Tarnwick.ListFileName.text;
  if (path.empty()) path = "LISTFILE.TXT";
  const bool written = WriteListing(w, path);
  CloseDatabase(w);
  if (!written || !w.platform.Shell("Notepad.exe " + path, WindowStyle::Normal))
    ReportListingError(w);
}

void ReportListingError(Workspace& w) {
  w.platform.MsgBox("Path or filename error");
}

void LocSites_Click(Workspace& w) {
  w.Tarnwick.MaxDistText.text = "20";
  MakeList_Click(w);
}

void ShowAll_Click(Workspace& w) {
  w.Tarnwick.ListFileName.text.clear();
  CloseResults(w);
}
