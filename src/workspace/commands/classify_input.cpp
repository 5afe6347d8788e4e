#include "workspace/commands/classify_input.h"

#include <string_view>

#include "workspace/values/number_text.h"
#include "workspace/values/strings.h"

void ClassifyInput(std::string& text, InputKind& kind) {
  const auto isLetter = [](char c) { return c >= 'A' && c <= 'Z'; };
  kind = kSiteName;
  if (text.size() < 5) return;
  if (!isLetter(text[0])) {
    if (TextToNumber(std::string_view(text).substr(0, 4)) > 0) kind = kLatLong;
    return;
  }
  if (!isLetter(text[1]) || !IsDigit(text[2]) || !IsDigit(text[3])) return;
  // Few positions of a database contain a blank, and the search is faster than std::erase.
  if (text.find(' ') != std::string::npos) std::erase(text, ' ');
  if (text.size() < 6) return;
  if (IsDigit(text[4]) && IsDigit(text[5])) kind = kGridReference;
  if (isLetter(text[4]) && isLetter(text[5])) kind = kLocator;
}
