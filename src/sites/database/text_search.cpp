#include "sites/database/text_search.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <numeric>
#include <vector>

#include "sites/database/line_reader.h"
#include "workspace/values/strings.h"

// The option TARNWICK_PORTABLE leaves out code for one processor.
#if defined(__SSE2__) && !defined(TARNWICK_PORTABLE)
#define TARNWICK_SSE2
#include <emmintrin.h>
#endif

namespace {

constexpr std::size_t kBlock = 64;
static_assert(2 * kBlock <= kBlockPadding);

constexpr CharacterPair kReturn = {{{0, 0, '\r'}, {0, 0, '\r'}}};
constexpr CharacterPair kTilde = {{{0, 0, '~'}, {0, 0, '~'}}};
constexpr CharacterPair kEndMarker = {{{2, 0, 'D'}, {5, 0, 'D'}}};  // hardly ever in other texts

// Sets bit i if a text that starts at at[i] passes both tests, for i from 0 to 63.
std::uint64_t MatchMask64(const char* at, const CharacterPair& pair) {
  std::uint64_t mask = 0;
#ifdef TARNWICK_SSE2
  const auto passing = [](const char* text, CharacterTest test) {
    const __m128i read = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + test.index));
    const __m128i folded = _mm_or_si128(read, _mm_set1_epi8(static_cast<char>(test.mask)));
    return _mm_cmpeq_epi8(folded, _mm_set1_epi8(static_cast<char>(test.expected)));
  };
  for (std::size_t i = 0; i < kBlock; i += 16) {
    const __m128i both = _mm_and_si128(passing(at + i, pair[0]), passing(at + i, pair[1]));
    mask |= std::uint64_t{static_cast<std::uint16_t>(_mm_movemask_epi8(both))} << i;
  }
#else
  const auto passes = [](const char* text, CharacterTest test) {
    return (static_cast<unsigned char>(text[test.index]) | test.mask) == test.expected;
  };
  for (std::size_t i = 0; i < kBlock; ++i)
    mask |= std::uint64_t{passes(at + i, pair[0]) && passes(at + i, pair[1])} << i;
#endif
  return mask;
}

// The test for a capital; its small letter differs from it in the bits of the mask at most.
CharacterTest TestFor(char capital, std::size_t index) {
  const auto code = static_cast<unsigned char>(capital);
  const bool isLetter = code >= 'A' && code <= 'Z';
  const unsigned char mask = isLetter ? 0x20 : code < 0x80 ? 0 : 0x70;
  return {index, mask, static_cast<unsigned char>(code | mask)};
}

// The tests for the two characters of a text that are rarest in names and remarks.
CharacterPair RarestPairOf(std::string_view upper) {
  constexpr std::string_view kCommonFirst = " EAOTINRSLHDG1F0CM2U34B5W6P789KY~,.VZXQJ";
  if (upper.empty()) return {{{0, 0xFF, 0xFF}, {0, 0xFF, 0xFF}}};  // every character passes
  std::vector<std::size_t> indices(std::min(upper.size(), kBlock));
  std::iota(indices.begin(), indices.end(), 0);
  std::stable_sort(indices.begin(), indices.end(), [&](std::size_t a, std::size_t b) {
    return kCommonFirst.find(upper[a]) > kCommonFirst.find(upper[b]);
  });
  const std::size_t first = indices.front();
  const std::size_t second = indices[indices.size() > 1 ? 1 : 0];
  return {TestFor(upper[first], first), TestFor(upper[second], second)};
}

bool BeginsWith(std::string_view rest, const CaseBlindText& sought) {
  return rest.size() >= sought.upper.size() &&
         std::equal(sought.upper.begin(), sought.upper.end(), rest.begin(),
                    [](char u, char c) { return u == UpperOf(c); });
}

// Clears the candidates in a block before the first one at which the text begins.
std::uint64_t ClearFalseCandidates(std::uint64_t candidates, const char* at, const char* end,
                                   const CaseBlindText& sought) {
  for (; candidates != 0; candidates &= candidates - 1) {
    const char* place = at + std::countr_zero(candidates);
    if (place >= end || BeginsWith({place, end}, sought)) break;
  }
  return candidates;
}

// Returns the first position at which the text begins, or `end`.
const char* FindText(const char* at, const char* end, const CaseBlindText& sought) {
  const CharacterPair rarest = sought.rarest;  // a copy: the compiler keeps it in registers
  for (; at < end; at += kBlock) {
    const std::uint64_t found = ClearFalseCandidates(MatchMask64(at, rarest), at, end, sought);
    if (found != 0) return std::min(at + std::countr_zero(found), end);
  }
  return end;
}

// Returns a position in the first line that contains the text, has no "~" or may contain the end
// marker; `end` if there is none. The addition carries a bit from the start of each line through
// all characters except "~", so the carry reaches the return of a line without one.
const char* FindLineToRead(const char* at, const char* end, const CaseBlindText& sought) {
  const CharacterPair rarest = sought.rarest;
  bool noTildeYet = true;  // in the line that crosses the start of the block
  for (; at < end; at += kBlock) {
    const std::uint64_t returns = MatchMask64(at, kReturn);
    const std::uint64_t others = ~MatchMask64(at, kTilde);
    const std::uint64_t starts = returns << 1 | (noTildeYet ? 1U : 0U);
    const std::uint64_t sum = others + starts;
    const std::uint64_t carried = sum ^ others ^ starts;
    const std::uint64_t found = (returns & (carried | starts)) | MatchMask64(at, kEndMarker) |
                                ClearFalseCandidates(MatchMask64(at, rarest), at, end, sought);
    if (found != 0) return std::min(at + std::countr_zero(found), end);
    noTildeYet = returns >> (kBlock - 1) != 0 || sum < others;
  }
  return end;
}

// Returns the start of the line that contains `at`, or `from` if the line starts before it.
const char* LineStart(const char* from, const char* at) {
  for (; static_cast<std::size_t>(at - from) >= kBlock; at -= kBlock)
    if (const std::uint64_t returns = MatchMask64(at - kBlock, kReturn); returns != 0)
      return at - std::countl_zero(returns);
  while (at != from && at[-1] != '\r') --at;
  return at;
}

const char* Cursor(const DatabaseHandle& database) {
  return database.buffer.data() + database.cursor;
}

void MoveCursorTo(DatabaseHandle& database, const char* lineStart) {
  if (lineStart == Cursor(database)) return;
  database.cursor = static_cast<std::size_t>(lineStart - database.buffer.data());
  database.skipLineFeed = true;
}

}  // namespace

CaseBlindText::CaseBlindText(std::string_view text)
    : upper(UpperOf(text)), rarest(RarestPairOf(upper)) {}

bool Matches(std::string_view line, const CaseBlindText& sought) {
  const char* end = line.data() + line.size();
  return sought.upper.empty() || FindText(line.data(), end, sought) != end;
}

bool ReadMatchingLine(DatabaseHandle& database, const CaseBlindText& sought,
                      std::string_view& line) {
  for (;;) {
    const char* place = FindText(Cursor(database), database.buffer.data() + database.limit, sought);
    MoveCursorTo(database, LineStart(Cursor(database), place));
    if (!ReadLine(database, line)) return false;
    // Usually the text begins at `place`. If the line was incomplete, it can begin anywhere.
    const char* end = line.data() + line.size();
    if (place >= line.data() && place < end && BeginsWith({place, end}, sought)) return true;
    if (Matches(line, sought)) return true;
  }
}

void SkipNonMatchingSites(DatabaseHandle& database, const CaseBlindText& sought) {
  const char* from = Cursor(database);
  const char* end = database.buffer.data() + database.limit;
  const char* start = LineStart(from, FindLineToRead(from, end, sought));
  // Goes back to the last line that ReadLine does not skip for its length.
  for (std::size_t length = kLongestLine + 1; start != from && length > kLongestLine;) {
    const char* next = start;
    start = LineStart(from, next - 1);
    length = static_cast<std::size_t>(next - start);
  }
  MoveCursorTo(database, start);
}
