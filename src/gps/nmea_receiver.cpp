#include "gps/nmea_receiver.h"

#include <algorithm>
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

// The fields of a sentence as they are shown.
struct RmcFields {
  std::string time;       // 12:35:19
  std::string latitude;   // 48 07.038N
  std::string longitude;  // 011 31.000E
};

// Reads the fields of a sentence that begins with "RMC". After the last comma the search restarts
// at the beginning, so a truncated sentence repeats its first fields.
RmcFields ParseRmc(const std::string& sentence) {
  RmcFields fields;
  std::string field;
  std::size_t start = 0;
  for (int number = 1; number <= 10; ++number) {
    start = sentence.find(',', start) + 1;  // npos + 1 is 0
    const std::size_t end = sentence.find(',', start);
    if (end != std::string::npos && end > start) field = sentence.substr(start, end - start);
    if (number == 1) fields.time = WithInserted(WithInserted(field.substr(0, 6), 2, ":"), 5, ":");
    if (number == 3) fields.latitude = WithInserted(field, 2, " ");
    if (number == 4) fields.latitude += field;
    if (number == 5) fields.longitude = WithInserted(field, 3, " ");
    if (number == 6) fields.longitude += field;
  }
  return fields;
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
  const RmcFields fields = ParseRmc(sentence);
  w.Tarnwick.InputText.text =
      fields.latitude + " " + fields.longitude + "          [ " + fields.time + " UTC ]";
  FindIt_Click(w);
}

}  // namespace SetUpCom
