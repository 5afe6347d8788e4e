#include "sites/listing.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "geo/dist_bear.h"
#include "geo/grid_decoder.h"
#include "geo/grid_encoder.h"
#include "geo/locator.h"
#include "sites/results.h"
#include "sites/site_database.h"
#include "workspace/classify_input.h"

namespace {

constexpr std::size_t kRowLength = 132;
constexpr std::size_t kWriteSize = std::size_t{1} << 18;
constexpr int kNameLength = 46;
constexpr double kUnlimitedDistance = 9999;  // a larger limit is not mentioned in the header

// The limits of a run, read once.
struct Limits {
  double minimum, maximum;  // km
  double from, to;          // degrees; from above to is the sector through north
  CaseBlindText name;
};

Limits LimitsOf(const MainWindow& main) {
  return {TextToNumber(main.MinDisttext.text), TextToNumber(main.MaxDistText.text),
          TextToNumber(main.FromBearText.text), TextToNumber(main.ToBearText.text),
          CaseBlindText(main.Srchtext.text)};
}

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

// The texts of the two reference columns, kept from record to record.
struct Columns {
  std::string locator;
  std::string gridReference;
};

// Decodes a record into the workspace, whether or not it is listed then. One without a place keeps
// the place before and has empty columns; a latitude and longitude is not decoded at all.
void DecodeRecord(Workspace& w, std::string_view line, const SiteLine& site, Columns& columns) {
  w.sitename = site.name;
  std::string position = UpperOf(site.position);
  std::int16_t kind = kSiteName;
  ClassifyInput(position, kind);
  if (HoldsEndMarker(line)) kind = kSiteName;
  if (kind == kSiteName) {
    columns = {};
  } else if (kind == kGridReference) {
    DecodeNGR(w, position, w.Lat, w.Lon);
    GenLocator(w.Lat, w.Lon, columns.locator);
    columns.gridReference = position;
  } else if (kind == kLocator) {
    DecodeLocator(w, position, w.Lat, w.Lon);
    GenNGR(w, w.Lat, w.Lon, columns.gridReference);
    columns.locator = position;
  }
  DistBear(w);
}

bool InSector(double bearing, double from, double to) {
  if (from < to) return bearing >= from && bearing <= to;
  if (from > to) return bearing >= from || bearing <= to;
  return false;
}

bool Passes(const Workspace& w, const Limits& limits) {
  return Matches(w.sitename, limits.name) && w.Dist >= limits.minimum && w.Dist <= limits.maximum &&
         InSector(w.Bearing, limits.from, limits.to);
}

std::string RowOf(const Workspace& w, const Columns& columns) {
  std::string row(kRowLength, ' ');
  const auto put = [&row](std::size_t column, const std::string& item) {
    const std::size_t length = std::min(item.size(), kRowLength - (column - 1));
    row.replace(column - 1, length, item, 0, length);
  };
  put(1, LeftOf(w.sitename, kNameLength));
  put(48, columns.locator);
  put(60, columns.gridReference);
  put(74, FormatPicture(w.Bearing, "####0.0"));
  put(81, FormatPicture(w.Backbearing, "(####0.0)"));
  put(89, "deg");
  put(96, FormatPicture(w.Dist, "####0.0"));
  put(103, "km");
  return row;
}

void WriteRows(Workspace& w, const Limits& limits, ListingFile& out) {
  Columns columns;
  std::int32_t rows = 0;
  std::string_view line;
  while (!out.failed && ReadLine(w.database, line)) {
    const SiteLine site = SplitSiteLine(line);
    if (!site.isRecord) continue;
    DecodeRecord(w, line, site, columns);
    if (!Passes(w, limits)) continue;
    ++rows;
    WriteLine(out, RowOf(w, columns));
    if (rows % 10 == 0) WriteLine(out, "");
  }
}

// Writes the file; false if it can't be created, is the database itself, or lost a write.
bool WriteListing(Workspace& w, const std::string& path) {
  const std::filesystem::path native = w.platform.NativePath(path);
  const std::filesystem::path source = w.platform.NativePath(w.Tarnwick.LocDatabase.text);
  std::error_code error;
  if (std::filesystem::equivalent(native, source, error)) return false;
  if (std::filesystem::is_fifo(native, error)) return false;  // opening it could wait for ever
  ListingFile out;
  out.file = std::fopen(native.string().c_str(), "wb");
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
