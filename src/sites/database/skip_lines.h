// Skips lines that cannot match a search; the results are the same without it, which is how the
// tests check it.
//
// A line can contain a text only where it contains a certain pair of its characters. The buffer is
// searched for the pair, 64 characters at a time, and only a line with the whole text is read.
#pragma once

#include <cstdint>

#include "sites/database/text_search.h"
#include "workspace/record/workspace.h"

// Moves the cursor past lines that do not contain the text. Stops before the last line in the
// buffer, which may be incomplete. Returns the index in the next line at which a search for the
// text may begin.
std::size_t SkipNonMatchingLines(DatabaseHandle& database, const CaseBlindText& sought);

// Moves the cursor past lines that contain a "~" but neither the text nor the end marker, as
// SkipNonMatchingLines does. Stores the name of the last skipped line, if there is one, in
// sitename.
void SkipNonMatchingSites(DatabaseHandle& database, const CaseBlindText& sought,
                          std::string& sitename);
