// Searching the site database faster than line by line. A search may first pass over lines that it
// would read in vain; the next ReadLine gives the first line that is not surely one of them.
// Leaving the calls out changes nothing but the time, which is how they are tested.
//
// A line can hold a text only where two of its characters stand, so the buffer is looked through
// for such a pair, 64 characters at a time, and only lines in which the whole text stands are read.
#pragma once

#include <cstdint>

#include "sites/database/text_search.h"
#include "workspace/record/workspace.h"

// Passes over lines that don't hold the text. The last line read so far, which may be incomplete,
// is left to be read. Gives the place in the next line at which the text should first be looked
// for.
std::size_t SkipNonMatchingLines(DatabaseHandle& database, const CaseBlindText& sought);

// Passes over lines that hold a "~" but neither the text nor the end marker, as
// SkipNonMatchingLines does. sitename becomes the name of the last line passed over, if there is
// one.
void SkipNonMatchingSites(DatabaseHandle& database, const CaseBlindText& sought,
                          std::string& sitename);
