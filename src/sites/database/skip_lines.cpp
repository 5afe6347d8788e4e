#include "sites/database/skip_lines.h"

#include <algorithm>
#include <bit>

#include "sites/database/line_reader.h"
#include "sites/database/site_line.h"

// TARNWICK_PORTABLE leaves out what is written for one processor.
#if defined(__SSE2__) && !defined(TARNWICK_PORTABLE)
#define TARNWICK_SSE2
#include <emmintrin.h>
#endif

namespace {

constexpr std::size_t kBlock = 64;
static_assert(kBlock + CharacterPair::kFarthest <= kBlockPadding);

constexpr MaskedByte kReturn{0, '\r'};
constexpr MaskedByte kTilde{0, '~'};

// The end marker by its first two Ds: hardly a word has a D three behind another.
constexpr CharacterPair kEndMarker{{0, 'D'}, {0, 'D'}, 2, 5};

// Bit i of the results tells whether the character at[i] passes, or whether a text that has the
// pair can start there. All 64 places are looked at.
#ifdef TARNWICK_SSE2

__m128i Passing(const char* at, MaskedByte test) {
  const __m128i text = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
  const __m128i folded = _mm_or_si128(text, _mm_set1_epi8(static_cast<char>(test.fold)));
  return _mm_cmpeq_epi8(folded, _mm_set1_epi8(static_cast<char>(test.value)));
}

std::uint64_t Bits(__m128i passing, std::size_t place) {
  return std::uint64_t{static_cast<std::uint16_t>(_mm_movemask_epi8(passing))} << place;
}

std::uint64_t Where(const char* at, MaskedByte test) {
  std::uint64_t where = 0;
  for (std::size_t i = 0; i < kBlock; i += 16) where |= Bits(Passing(at + i, test), i);
  return where;
}

std::uint64_t Where(const char* at, const CharacterPair& pair) {
  std::uint64_t where = 0;
  for (std::size_t i = 0; i < kBlock; i += 16) {
    const __m128i first = Passing(at + i + pair.firstAt, pair.first);
    const __m128i second = Passing(at + i + pair.secondAt, pair.second);
    where |= Bits(_mm_and_si128(first, second), i);
  }
  return where;
}

#else  // the same on any processor

std::uint64_t Where(const char* at, MaskedByte test) {
  std::uint64_t where = 0;
  for (std::size_t i = 0; i < kBlock; ++i) {
    const bool passes = (static_cast<unsigned char>(at[i]) | test.fold) == test.value;
    where |= std::uint64_t{passes} << i;
  }
  return where;
}

std::uint64_t Where(const char* at, const CharacterPair& pair) {
  return Where(at + pair.firstAt, pair.first) & Where(at + pair.secondAt, pair.second);
}

#endif

// Where a line ends of which no character is a "~". The sum carries a bit from the start of each
// line to its first "~", so a return that the carry reaches ends such a line. noTildeYet tells
// whether the line that goes on from block to block has had none yet.
std::uint64_t ReturnsWithoutTilde(const char* at, bool& noTildeYet) {
  const std::uint64_t returns = Where(at, kReturn);
  const std::uint64_t others = ~Where(at, kTilde);
  const std::uint64_t starts = returns << 1 | std::uint64_t{noTildeYet};
  const std::uint64_t sum = others + starts;
  const std::uint64_t carried = sum ^ others ^ starts;
  noTildeYet = returns >> (kBlock - 1) != 0 || sum < others;
  return returns & (carried | starts);
}

// Takes from the places those before `end` at which the text does not stand, up to the first at
// which it does.
void ClearFalseCandidates(std::uint64_t& places, const char* at, const char* end,
                          const CaseBlindText& sought) {
  while (places != 0) {
    const char* place = at + std::countr_zero(places);
    if (place >= end || BeginsWith({place, end}, sought)) return;
    places &= places - 1;
  }
}

// The start of the line in which `at` stands, or `from` if it starts before.
const char* LineStart(const char* from, const char* at) {
  while (static_cast<std::size_t>(at - from) >= kBlock) {
    const std::uint64_t returns = Where(at - kBlock, kReturn);
    if (returns != 0) return at - std::countl_zero(returns);
    at -= kBlock;
  }
  while (at != from && at[-1] != '\r') --at;
  return at;
}

// Moves on to the start of the line in which `at` stands, and gives its place in the line.
std::size_t AdvanceToLineOf(DatabaseHandle& database, const char* at) {
  const char* from = database.buffer.data() + database.cursor;
  const char* start = LineStart(from, at);
  if (start != from) {
    database.cursor += static_cast<std::size_t>(start - from);
    database.skipLineFeed = true;
  }
  if (at != start && database.skipLineFeed && *start == '\n') ++start;
  return static_cast<std::size_t>(at - start);
}

// The name of the last line that ends before `start`, if one does.
void CaptureLastSiteName(const DatabaseHandle& database, const char* start, std::string& sitename) {
  const char* from = database.buffer.data() + database.cursor;
  while (start != from) {
    const char* end = start - 1;
    start = LineStart(from, end);
    const bool lineFeed = (start != from || database.skipLineFeed) && *start == '\n';
    const std::string_view line(start + lineFeed, end);
    if (line.size() > kLongestLine) continue;
    sitename = SplitSiteLine(line).name;
    return;
  }
}

}  // namespace

std::size_t SkipNonMatchingLines(DatabaseHandle& database, const CaseBlindText& sought) {
  const char* at = database.buffer.data() + database.cursor;
  const char* end = database.buffer.data() + database.limit;
  const CharacterPair rarest = sought.rarest;  // a copy, which the compiler need not read again
  for (; at < end; at += kBlock) {
    std::uint64_t places = Where(at, rarest);
    ClearFalseCandidates(places, at, end, sought);
    if (places != 0) return AdvanceToLineOf(database, std::min(at + std::countr_zero(places), end));
  }
  return AdvanceToLineOf(database, end);
}

void SkipNonMatchingSites(DatabaseHandle& database, const CaseBlindText& sought,
                          std::string& sitename) {
  const char* from = database.buffer.data() + database.cursor;
  const char* end = database.buffer.data() + database.limit;
  bool noTildeYet = true;
  const char* at = from;
  const CharacterPair rarest = sought.rarest;
  for (std::uint64_t found = 0; at < end; at += kBlock) {
    std::uint64_t places = Where(at, rarest);
    ClearFalseCandidates(places, at, end, sought);
    found = ReturnsWithoutTilde(at, noTildeYet) | places | Where(at, kEndMarker);
    if (found == 0) continue;
    at += std::countr_zero(found);
    break;
  }
  at = std::min(at, end);
  CaptureLastSiteName(database, LineStart(from, at), sitename);
  AdvanceToLineOf(database, at);
}
