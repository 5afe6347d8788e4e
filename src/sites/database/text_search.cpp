#include "sites/database/text_search.h"

#include <algorithm>

#include "workspace/values/strings.h"

namespace {

unsigned char Code(char c) {
  return static_cast<unsigned char>(c);
}

// The test for a capital and its small letters; the mask is the bits in which they differ.
MaskedByte MaskedByteFor(char capital) {
  MaskedByte test;
  for (std::size_t code = 0; code < kCapitals.size(); ++code)
    if (kCapitals[code] == capital) test.mask |= static_cast<unsigned char>(code ^ Code(capital));
  test.expected = Code(capital) | test.mask;
  return test;
}

// The two characters of a text that are rarest in names and remarks.
CharacterPair RarestPairOf(std::string_view upper) {
  constexpr std::string_view kCommonFirst = " EAOTINRSLHDG1F0CM2U34B5W6P789KY~,.VZXQJ";
  const std::string_view text = upper.substr(0, CharacterPair::kFarthest + 1);
  if (text.empty()) return {};
  const auto rarestBut = [&](std::size_t taken) {
    std::size_t best = taken == 0 ? text.size() - 1 : 0;
    for (std::size_t i = 0; i < text.size(); ++i)
      if (i != taken && kCommonFirst.find(text[i]) > kCommonFirst.find(text[best])) best = i;
    return best;
  };
  CharacterPair pair;
  pair.firstAt = rarestBut(text.size());
  pair.secondAt = rarestBut(pair.firstAt);
  pair.first = MaskedByteFor(text[pair.firstAt]);
  pair.second = MaskedByteFor(text[pair.secondAt]);
  return pair;
}

}  // namespace

CaseBlindText::CaseBlindText(std::string_view text)
    : upper(UpperOf(text)), rarest(RarestPairOf(upper)) {
  std::array<std::size_t, 256> byCapital{};
  byCapital.fill(upper.size());
  for (std::size_t i = 0; i + 1 < upper.size(); ++i)
    byCapital[Code(upper[i])] = upper.size() - 1 - i;
  for (std::size_t code = 0; code < shift.size(); ++code) {
    const char capital = kCapitals[code];
    shift[code] = byCapital[Code(capital)];
    ends[code] = !upper.empty() && capital == upper.back();
  }
}

bool Matches(std::string_view line, const CaseBlindText& sought) {
  const std::size_t length = sought.upper.size();
  if (length == 0) return true;
  for (std::size_t at = 0; at + length <= line.size();) {
    const unsigned char last = Code(line[at + length - 1]);
    if (sought.ends[last] && BeginsWith(line.substr(at), sought)) return true;
    at += sought.shift[last];
  }
  return false;
}

bool BeginsWith(std::string_view rest, const CaseBlindText& sought) {
  return rest.size() >= sought.upper.size() &&
         std::equal(sought.upper.begin(), sought.upper.end(), rest.begin(),
                    [](char u, char c) { return u == UpperOf(c); });
}
