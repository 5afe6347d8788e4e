#include "sites/listing.h"

#include <cstdio>
#include <filesystem>

#include "platform/open_file.h"
#include "sites/fast_rows.h"
#include "sites/listing_rows.h"
#include "sites/results.h"

namespace {

constexpr std::size_t kWriteSize = std::size_t{1} << 18;
constexpr double kUnlimitedDistance = 9999;  // a larger limit is not mentioned in the header

// The listing file as it grows; a write that fails is remembered.
struct ListingFile {
  std::FILE* file = nullptr;
  std::string pending;
  bool failed = false;
};

void Flush(ListingFile& out) {
  if (std::fwrite(out.pending.data(), 1, out.pending.size(), out.file) != out.pending.size())
    out.failed = true;
  out.pending.clear();
}

void WriteLine(ListingFile& out, std::string_view line) {
  out.pending.append(line).append("\r\n");
  if (out.pending.size() >= kWriteSize) Flush(out);
}

// Whether everything reached the file.
bool Close(ListingFile& out) {
  Flush(out);
  if (std::fclose(out.file) != 0) out.failed = true;
  out.file = nullptr;
  return !out.failed;
}

void WriteHeader(Workspace& w, const Limits& limits, ListingFile& out) {
  WriteLine(out, "Generated from    Tarnwick  Brelk");
  WriteLine(out, FormatDate(w.platform.Today(), "YYYY/mm/dd"));
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
  FastRows fast = FastRowsFor(w, limits);
  Columns columns;
  std::int32_t rows = 0;
  std::string_view line;
  while (!out.failed && ReadLine(w.database, line)) {
    const SiteLine site = SplitSiteLine(line);
    if (!site.isRecord) continue;
    RowVerdict verdict = FastRow(fast, line, site);
    if (verdict == RowVerdict::Unknown) {
      CatchUp(fast, w, columns);
      DecodeRecord(w, line, site, columns);
      if (Passes(w, limits)) {
        fast.row = RowOf(w, columns);
        verdict = RowVerdict::Listed;
      }
    }
    if (verdict != RowVerdict::Listed) continue;
    ++rows;
    WriteLine(out, fast.row);
    if (rows % 10 == 0) WriteLine(out, "");
  }
  CatchUp(fast, w, columns);
}

// Writes the file; false if it can't be created, is the database itself, or lost a write.
bool WriteListing(Workspace& w, const std::string& path) {
  const std::filesystem::path native = w.platform.NativePath(path);
  const std::filesystem::path source = w.platform.NativePath(w.Tarnwick.LocDatabase.text);
  std::error_code error;
  if (std::filesystem::equivalent(native, source, error)) return false;
  if (std::filesystem::is_fifo(native, error)) return false;  // opening it could wait for ever
  ListingFile out;
  out.file = OpenFile(native, "wb");
  if (out.file == nullptr) return false;
  std::setvbuf(out.file, nullptr, _IONBF, 0);
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
