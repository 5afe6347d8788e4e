#include "gps/nmea_receiver.h"

#include <utility>

#include "workspace/commands/use_this.h"
#include "workspace/values/strings.h"

namespace SetUpCom {

namespace {

constexpr std::size_t kLongestBuffer = 32767;

constexpr int kSentenceLength = 68;  // from "RMC" on; the fields that are read end well before that
constexpr int kShortestText = 45;

// The fields of a sentence as texts.
struct RmcFields {
  std::string time;       // 123519
  std::string latitude;   // 48 07.038N
  std::string longitude;  // 011 31.000E
};

// Reads the fields of a sentence that begins with "RMC". After the last comma FindIn returns 0, so
// the search restarts at the beginning, and a truncated sentence repeats its first fields.
RmcFields ParseRmc(const std::string& sentence) {
  RmcFields fields;
  std::string field;
  int comma = 0;
  for (int number = 1; number <= 10; ++number) {
    comma = FindIn(comma + 1, sentence, ",");
    const int length = FindIn(comma + 1, sentence, ",") - comma - 1;
    if (length > 0) field = MidOf(sentence, comma + 1, length);
    if (number == 1) fields.time = field;
    if (number == 3) fields.latitude = LeftOf(field, 2) + " " + MidOf(field, 3);
    if (number == 4) fields.latitude += field;
    if (number == 5) fields.longitude = LeftOf(field, 3) + " " + MidOf(field, 4);
    if (number == 6) fields.longitude += field;
  }
  return fields;
}

}  // namespace

void MSComm1_OnComm(Workspace& w) {
  std::string& buffer = w.SetUpCom.RxBuffer;
  buffer += w.platform.Serial().Input();
  if (buffer.size() > kLongestBuffer) buffer.erase(0, buffer.size() - kLongestBuffer);
  if (FindIn(1, buffer, "\r") == 0) return;
  const std::string text = std::exchange(buffer, {});
  const int start = FindIn(1, text, "RMC");
  if (start == 0) return;
  const std::string sentence = MidOf(text, start, kSentenceLength);
  if (LengthOf(sentence) < kShortestText) return;
  const RmcFields fields = ParseRmc(sentence);
  const std::string time =
      LeftOf(fields.time, 2) + ":" + MidOf(fields.time, 3, 2) + ":" + MidOf(fields.time, 5, 2);
  w.Tarnwick.InputText.text =
      fields.latitude + " " + fields.longitude + Blanks(10) + "[ " + time + " UTC ]";
  FindIt_Click(w);
}

}  // namespace SetUpCom
