#include "sites/listing/listing.h"

#include "sites/database/line_reader.h"
#include "sites/listing/fast_listing.h"
#include "sites/listing/listing_row.h"
#include "sites/lookup/lookup.h"
#include "workspace/values/number_text.h"

namespace {

constexpr std::size_t kWriteSize = std::size_t{1} << 18;
constexpr double kUnlimitedDistance = 9999;  // the header omits this limit and larger ones

std::string HeaderOf(Workspace& w, const Limits& limits) {
  const std::chrono::year_month_day today = w.platform.Today();
  std::string header;
  const auto add = [&header](const std::string& line) { header += line + "\r\n"; };
  add("Generated from    Tarnwick  Brelk");
  add(FormatPicture(int{today.year()}, "0000/") + FormatPicture(unsigned{today.month()}, "00/") +
      FormatPicture(unsigned{today.day()}, "00"));
  add("");
  add("Distance and Bearings from " + w.BaseName);
  add("");
  if (limits.minimum > 0) add("Minimum distance " + NumberToText(limits.minimum));
  if (limits.maximum < kUnlimitedDistance) add("Maximum distance " + NumberToText(limits.maximum));
  if (limits.from > 0 || limits.to < 360)
    add("Bearings restricted to sites within" + NumberToText(limits.from) + " to " +
        NumberToText(limits.to) + " deg");
  if (!w.Tarnwick.Srchtext.text.empty())
    add("Only Sites with   '" + w.Tarnwick.Srchtext.text + "'   in their name");
  add("");
  add("   Sitename                                     Locator       NGR         To     Back  "
      "         Distance");
  add("");
  return header;
}

// Writes the header and the rows of the open database; false after a failed write.
bool WriteLines(Workspace& w, File& file) {
  const Limits limits = LimitsOf(w.Tarnwick);
  std::string pending = HeaderOf(w, limits);  // not yet written
  ListingAccelerator fast{limits, HomeStationAt(w.BaseLat, w.BaseLong)};
  SiteRecord record;
  Columns columns;
  std::int32_t rows = 0;
  std::string_view line;
  bool isWritten = true;
  while (isWritten && ReadLine(w.database, line)) {
    if (!ReadRecord(line, record)) continue;
    std::optional<bool> listed = TryFastRow(fast, record, pending);
    if (!listed.has_value()) {
      ReplayDeferred(fast, w, columns);
      listed = AppendExactRow(w, record, limits, columns, pending);
    }
    if (!*listed) continue;
    pending += ++rows % 10 == 0 ? "\r\n\r\n" : "\r\n";
    if (pending.size() < kWriteSize) continue;
    isWritten = file.Write(pending);
    pending.clear();
  }
  ReplayDeferred(fast, w, columns);
  return isWritten && file.Write(pending);
}

// Writes the file; false if it can't be created, is the database itself, or a call failed.
bool WriteListing(Workspace& w, const std::string& path) {
  if (w.platform.IsSameFile(path, w.Tarnwick.LocDatabase.text)) return false;
  const std::unique_ptr<File> file = w.platform.OpenToWrite(path);
  if (!file) return false;
  const bool isWritten = WriteLines(w, *file);
  return file->Close() && isWritten && !w.database.failed;
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
