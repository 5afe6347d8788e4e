#include "sites/database/skip_lines.h"

#include <algorithm>
#include <bit>

#include "sites/database/line_reader.h"
#include "sites/database/site_line.h"

// The option TARNWICK_PORTABLE leaves out code for one processor.
#if defined(__SSE2__) && !defined(TARNWICK_PORTABLE)
#define TARNWICK_SSE2
#include <emmintrin.h>
#endif

namespace {

constexpr std::size_t kBlock = 64;
static_assert(kBlock + CharacterPair::kFarthest <= kBlockPadding);

constexpr MaskedByte kReturn{0, '\r'};
constexpr MaskedByte kTilde{0, '~'};

// Two of the Ds of the end marker: in names and remarks a D rarely follows another at this
// distance.
constexpr CharacterPair kEndMarker{{0, 'D'}, {0, 'D'}, 2, 5};

// MatchMask64 sets bit i if at[i] passes a test, or if a text that contains the pair may begin at
// at[i], for i from 0 to 63. It reads up to kBlock + kFarthest characters.
#ifdef TARNWICK_SSE2

__m128i Passing(const char* at, MaskedByte test) {
  const __m128i text = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
  const __m128i folded = _mm_or_si128(text, _mm_set1_epi8(static_cast<char>(test.mask)));
  return _mm_cmpeq_epi8(folded, _mm_set1_epi8(static_cast<char>(test.expected)));
}

std::uint64_t Bits(__m128i passing, std::size_t firstBit) {
  return std::uint64_t{static_cast<std::uint16_t>(_mm_movemask_epi8(passing))} << firstBit;
}

std::uint64_t MatchMask64(const char* at, MaskedByte test) {
  std::uint64_t mask = 0;
  for (std::size_t i = 0; i < kBlock; i += 16) mask |= Bits(Passing(at + i, test), i);
  return mask;
}

std::uint64_t MatchMask64(const char* at, const CharacterPair& pair) {
  std::uint64_t mask = 0;
  for (std::size_t i = 0; i < kBlock; i += 16) {
    const __m128i first = Passing(at + i + pair.firstAt, pair.first);
    const __m128i second = Passing(at + i + pair.secondAt, pair.second);
    mask |= Bits(_mm_and_si128(first, second), i);
  }
  return mask;
}

#else  // any processor

std::uint64_t MatchMask64(const char* at, MaskedByte test) {
  std::uint64_t mask = 0;
  for (std::size_t i = 0; i < kBlock; ++i) {
    const bool passes = (static_cast<unsigned char>(at[i]) | test.mask) == test.expected;
    mask |= std::uint64_t{passes} << i;
  }
  return mask;
}

std::uint64_t MatchMask64(const char* at, const CharacterPair& pair) {
  return MatchMask64(at + pair.firstAt, pair.first) & MatchMask64(at + pair.secondAt, pair.second);
}

#endif

// Returns the carriage returns of a block that end a line without a "~". The addition carries a bit
// from the start of each line through all characters except "~", so the carry reaches the return of
// such a line. `noTildeYet` is whether the line that crosses the start of the block had no "~" so
// far; it is updated for the next block.
std::uint64_t ReturnsWithoutTilde(const char* at, bool& noTildeYet) {
  const std::uint64_t returns = MatchMask64(at, kReturn);
  const std::uint64_t others = ~MatchMask64(at, kTilde);
  const std::uint64_t starts = returns << 1 | (noTildeYet ? 1U : 0U);
  const std::uint64_t sum = others + starts;
  const std::uint64_t carried = sum ^ others ^ starts;
  noTildeYet = returns >> (kBlock - 1) != 0 || sum < others;
  return returns & (carried | starts);
}

// Clears the bits of places where the text does not begin, up to the first place where it does.
// Places from `end` on are kept.
void ClearFalseCandidates(std::uint64_t& places, const char* at, const char* end,
                          const CaseBlindText& sought) {
  while (places != 0) {
    const char* place = at + std::countr_zero(places);
    if (place >= end || BeginsWith({place, end}, sought)) return;
    places &= places - 1;
  }
}

// Returns the start of the line that contains `at`, or `from` if the line starts before it.
const char* LineStart(const char* from, const char* at) {
  while (static_cast<std::size_t>(at - from) >= kBlock) {
    const std::uint64_t returns = MatchMask64(at - kBlock, kReturn);
    if (returns != 0) return at - std::countl_zero(returns);
    at -= kBlock;
  }
  while (at != from && at[-1] != '\r') --at;
  return at;
}

// Moves the cursor to the start of the line that contains `at`. Returns the index of `at` in it.
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

// Stores the name of the last line that ends before `start`, if there is one, in sitename. Ignores
// lines that ReadLine would skip.
void CaptureLastSiteName(const DatabaseHandle& database, const char* start, std::string& sitename) {
  const char* from = database.buffer.data() + database.cursor;
  while (start != from) {
    const char* end = start - 1;
    start = LineStart(from, end);
    const bool lineFeed = (start != from || database.skipLineFeed) && *start == '\n';
    const std::string_view line(lineFeed ? start + 1 : start, end);
    if (line.size() > kLongestLine) continue;
    sitename = SplitSiteLine(line).name;
    return;
  }
}

}  // namespace

std::size_t SkipNonMatchingLines(DatabaseHandle& database, const CaseBlindText& sought) {
  const char* at = database.buffer.data() + database.cursor;
  const char* end = database.buffer.data() + database.limit;
  const CharacterPair rarest = sought.rarest;  // a copy: the compiler keeps it in registers
  for (; at < end; at += kBlock) {
    std::uint64_t places = MatchMask64(at, rarest);
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
    std::uint64_t places = MatchMask64(at, rarest);
    ClearFalseCandidates(places, at, end, sought);
    found = ReturnsWithoutTilde(at, noTildeYet) | places | MatchMask64(at, kEndMarker);
    if (found == 0) continue;
    at += std::countr_zero(found);
    break;
  }
  at = std::min(at, end);
  CaptureLastSiteName(database, LineStart(from, at), sitename);
  AdvanceToLineOf(database, at);
}
