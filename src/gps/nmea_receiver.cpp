#include "gps/nmea_receiver.h"

#include "workspace/commands/use_this.h"
#include "workspace/values/strings.h"

namespace SetUpCom {

namespace {

// Of a stream without a carriage return the newest characters are kept.
constexpr std::size_t kLongestBuffer = 32767;

constexpr int kSentenceLength = 68;  // from RMC on; the fields in use end well before
constexpr int kShortestText = 45;

// What a sentence says, as texts.
struct Fix {
  std::string time;
  std::string latitude;   // 48 07.038N
  std::string longitude;  // 011 31.000E
};

// Takes a sentence apart, from its RMC on.
//   $GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A
//     1 hhmmss UTC, perhaps with a fraction    2 A valid, V warning; both are taken
//     3 ddmm.mmmm latitude   4 N or S          5 dddmm.mmmm longitude   6 E or W
//     7 to 10 speed, course, date, variation: not used
// An empty field repeats the field before.
Fix FixOf(const std::string& t) {
  Fix fix;
  std::string field;
  int c1 = 0;
  for (int k = 1; k <= 10; ++k) {
    c1 = FindIn(c1 + 1, t, ",");
    const int c2 = FindIn(c1 + 1, t, ",");
    if (c2 - c1 - 1 > 0) field = MidOf(t, c1 + 1, c2 - c1 - 1);
    if (k == 1) fix.time = field;
    if (k == 3) fix.latitude = LeftOf(field, 2) + " " + MidOf(field, 3);
    if (k == 4) fix.latitude += field;
    if (k == 5) fix.longitude = LeftOf(field, 3) + " " + MidOf(field, 4);
    if (k == 6) fix.longitude += field;
  }
  return fix;
}

}  // namespace

void MSComm1_OnComm(Workspace& w) {
  std::string& buffer = w.SetUpCom.RxBuffer;
  buffer += w.platform.Serial().Input();
  if (buffer.size() > kLongestBuffer) buffer.erase(0, buffer.size() - kLongestBuffer);
  if (FindIn(1, buffer, "\r") == 0) return;
  std::string t = std::move(buffer);
  buffer.clear();
  const int at = FindIn(1, t, "RMC");
  if (at == 0) return;
  t = MidOf(t, at, kSentenceLength);
  const Fix fix = FixOf(t);
  if (LengthOf(t) < kShortestText) return;
  const std::string time =
      LeftOf(fix.time, 2) + ":" + MidOf(fix.time, 3, 2) + ":" + MidOf(fix.time, 5, 2);
  w.Tarnwick.InputText.text =
      fix.latitude + " " + fix.longitude + Blanks(10) + "[ " + time + " UTC ]";
  FindIt_Click(w);
}

}  // namespace SetUpCom
