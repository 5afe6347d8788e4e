// Reads the site database line by line. The file is plain single-byte text; every command reads it
// from its first line, and nothing writes it.
#pragma once

#include <string_view>

#include "workspace/record/workspace.h"

// ReadLine skips longer lines.
inline constexpr std::size_t kLongestLine = 32766;

// Readable padding after the bytes read, so that a search may read whole blocks.
inline constexpr std::size_t kBlockPadding = 128;

// Closes the handle, opens the file that LocDatabase names and reads its first block. A file that
// is missing, not a regular file or unreadable shows the message "Site datbase not found" and
// returns false.
[[nodiscard]] bool OpenDatabase(Workspace& w);

// Reads the next line into `line`, without its line end (CR LF, or CR alone; a lone LF is an
// ordinary character). The view is valid until the next call. Returns false at the end of the file
// and after a read error; `database.failed` distinguishes the two.
[[nodiscard]] bool ReadLine(DatabaseHandle& database, std::string_view& line);

// Closes the handle; does nothing if the handle is closed.
void CloseDatabase(Workspace& w);

// Closes the handle. If opening the file or a read failed, then shows "Site datbase not found".
void CloseAndReportFailure(Workspace& w);
