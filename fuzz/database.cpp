// A hostile database file, read by Use This, Lookup and the listing.
//   Input  a line with the text to search for, then the file. \x1D and a character are replaced by
//          kRun of that character, so that lines reach the length limit and cross the read buffer.
#include "fuzz/invariants.h"
#include "sites/listing/listing.h"

namespace {

constexpr std::size_t kRun = 10'922;  // a third of the longest line
constexpr int kMostRuns = 30;

std::string WithRunsExpanded(std::string_view text) {
  std::string file;
  int runs = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isRun = text[i] == '\x1D' && i + 1 < text.size() && runs++ < kMostRuns;
    file.append(isRun ? kRun : 1, text[isRun ? ++i : i]);
  }
  return file;
}

std::size_t CountEntries(Workspace& w, const std::string& sought) {
  w.Tarnwick.InputText.text = sought;
  w.ShowList = {};
  Lookup_Click(w);
  CheckRecord(w, kLongestLine);
  return w.ShowList.PR.items.size();
}

// Makes a listing of all sites and returns the number of its rows.
std::size_t CountRows(Program& program) {
  constexpr std::size_t kRow = 132;
  constexpr int kHeaderLines = 8;
  MakeList_Click(program.w);
  CheckRecord(program.w, kLongestLine);
  Require(program.platform.events.back().starts_with("Shell "), "the listing was made");
  const std::string& listing = program.platform.files->at(program.w.Tarnwick.ListFileName.text);
  std::size_t at = 0;
  for (int line = 0; line < kHeaderLines; ++line) at = listing.find("\r\n", at) + 2;
  std::size_t rows = 0;
  for (; at < listing.size(); at += kRow + 2) {
    Require(listing.compare(at + kRow, 2, "\r\n") == 0, "a row has 132 characters");
    if (++rows % 10 == 0) at += 2;
  }
  return rows;
}

}  // namespace

void Try(const std::string& input) {
  const std::size_t end = std::min(input.find('\n'), input.size());
  const std::string sought = input.substr(0, end);
  const std::string file =
      WithRunsExpanded(std::string_view(input).substr(std::min(end + 1, input.size())));
  Program program(file);
  UseThis(program.w, "SU1234");
  SetHome_Click(program.w);
  UseThis(program.w, sought, kLongestLine);
  (void)CountEntries(program.w, sought);
  Require(CountRows(program) == CountEntries(program.w, "~"),
          "exactly the lines with a ~ are listed");
  Require(program.Database() == file, "the database is never written");
}
