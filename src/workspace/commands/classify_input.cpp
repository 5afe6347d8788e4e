#include "workspace/commands/classify_input.h"

#include "workspace/values/number_text.h"
#include "workspace/values/strings.h"

namespace {

constexpr int kShortestPlace = 5;  // characters

bool IsLetterAt(const std::string& text, int position) {
  const int code = CodeOf(MidOf(text, position, 1));
  return code >= 'A' && code <= 'Z';
}

bool IsDigitAt(const std::string& text, int position) {
  const std::string character = MidOf(text, position, 1);
  return !character.empty() && IsDigit(character[0]);
}

}  // namespace

void ClassifyInput(std::string& text, InputKind& kind) {
  kind = kSiteName;
  if (LengthOf(text) < kShortestPlace) return;
  if (TextToNumber(LeftOf(text, 4)) > 0) {
    kind = kLatLong;
    return;
  }
  if (!IsLetterAt(text, 1) || !IsLetterAt(text, 2)) return;
  if (!IsDigitAt(text, 3) || !IsDigitAt(text, 4)) return;
  std::erase(text, ' ');
  if (IsDigitAt(text, 5) && IsDigitAt(text, 6)) kind = kGridReference;
  if (IsLetterAt(text, 5) && IsLetterAt(text, 6)) kind = kLocator;
}
