#include "workspace/commands/classify_input.h"

#include <algorithm>

#include "workspace/values/number_text.h"
#include "workspace/values/strings.h"

namespace {

bool IsLetterAt(const std::string& text, int position) {
  const int code = CodeOf(MidOf(text, position, 1));
  return code >= 65 && code <= 90;
}

bool IsDigitAt(const std::string& text, int position) {
  const std::string character = MidOf(text, position, 1);
  return !character.empty() && IsDigit(character[0]);
}

}  // namespace

void ClassifyInput(std::string& text, std::int16_t& kind) {
  kind = kSiteName;
  if (LengthOf(text) < 5) return;
  if (TextToNumber(LeftOf(text, 4)) > 0) {
    kind = kLatLong;
    return;
  }
  if (!IsLetterAt(text, 1) || !IsLetterAt(text, 2)) return;
  if (!IsDigitAt(text, 3) || !IsDigitAt(text, 4)) return;
  text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
  if (IsDigitAt(text, 5) && IsDigitAt(text, 6)) kind = kGridReference;
  if (IsLetterAt(text, 5) && IsLetterAt(text, 6)) kind = kLocator;
}
