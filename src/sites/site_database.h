// The site database: plain single-byte text, a site a line, "name~position~remarks". It is only
// read, from its first line by every command, and never written. docs/file-formats.md tells the
// format to its users.
#pragma once

#include <string>
#include <string_view>

#include "sites/case_blind_text.h"
#include "workspace/workspace.h"

// A line longer than this is no line: it is read and passed over.
inline constexpr std::size_t kLongestLine = 32766;

// A lookup shows this many characters of a line.
inline constexpr std::size_t kEntryLength = 28;

// So many characters behind the last one read can be looked at, whatever they are.
inline constexpr std::size_t kBlockSlack = 128;

// More entries than these a lookup leaves out: a file of nothing but line ends would fill memory.
inline constexpr std::size_t kMostEntries = 10'000'000;

// One line taken apart; the views live as long as the line.
struct SiteLine {
  bool isRecord = false;      // there is a "~"
  std::string_view name;      // before the first "~", may be empty
  std::string_view position;  // behind it, up to the second "~" if there is one; not yet upper case
};
// Takes a line apart; a line without a "~" has neither name nor position.
SiteLine SplitSiteLine(std::string_view line);

// Whether the line stands behind the last site: "ENDENDEND" anywhere in it, in exactly that case.
bool HoldsEndMarker(std::string_view line);

// Closes the handle, opens the file that LocDatabase names and reads its first piece. A file that
// is missing, no plain file or not readable gives the message "Site datbase not found" and false.
[[nodiscard]] bool OpenDatabase(Workspace& w);

// The next line, without its end: CR LF, or CR alone; an LF alone is a character of the line. The
// view holds until the next call. False at the end of the file or where reading fails.
[[nodiscard]] bool ReadLine(DatabaseHandle& database, std::string_view& line);

// Harmless if closed.
void CloseDatabase(Workspace& w);

// Shows the Results window and adds every line that holds the text of InputText, cut at 28
// characters; all lines if it is empty. A second lookup adds to what is there, up to kMostEntries.
void SearchDatabase(Workspace& w);

// The same, from its button.
void Lookup_Click(Workspace& w);
