#include "gps/nmea_receiver.h"

#include <algorithm>
#include <array>
#include <utility>

#include "workspace/commands/use_this.h"

namespace SetUpCom {

namespace {

constexpr std::size_t kLongestBuffer = 32767;

constexpr std::size_t kSentenceLength = 68;  // from "RMC" on; the fields end well before that
constexpr std::size_t kShortestText = 45;

// Inserts a text before index `at`, or at the end of a shorter text.
std::string WithInserted(std::string text, std::size_t at, const char* inserted) {
  return text.insert(std::min(at, text.size()), inserted);
}

// The position and time of a sentence that begins with "RMC", as InputText shows them. After the
// last comma the search restarts at the beginning, so a truncated sentence repeats its first
// fields.
std::string PlaceAndTimeOf(const std::string& sentence) {
  std::array<std::string, 7> fields;
  std::size_t start = 0;
  for (std::size_t i = 1; i < fields.size(); ++i) {
    start = sentence.find(',', start) + 1;  // npos + 1 is 0
    const std::size_t end = sentence.find(',', start);
    const bool hasField = end != std::string::npos && end > start;
    fields[i] = hasField ? sentence.substr(start, end - start) : fields[i - 1];
  }
  const std::string time = WithInserted(WithInserted(fields[1].substr(0, 6), 2, ":"), 5, ":");
  return WithInserted(fields[3], 2, " ") + fields[4] + " " + WithInserted(fields[5], 3, " ") +
         fields[6] + "          [ " + time + " UTC ]";
}

}  // namespace

void MSComm1_OnComm(Workspace& w) {
  std::string& buffer = w.SetUpCom.RxBuffer;
  buffer += w.platform.Serial().Input();
  if (buffer.size() > kLongestBuffer) buffer.erase(0, buffer.size() - kLongestBuffer);
  if (buffer.find('\r') == std::string::npos) return;
  const std::string text = std::exchange(buffer, {});
  const std::size_t start = text.find("RMC");
  if (start == std::string::npos) return;
  const std::string sentence = text.substr(start, kSentenceLength);
  if (sentence.size() < kShortestText) return;
  w.Tarnwick.InputText.text = PlaceAndTimeOf(sentence);
  FindIt_Click(w);
}

}  // namespace SetUpCom
