#include "gps/port_setup.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"

namespace SetUpCom {

namespace {

constexpr int kHighestPort = 32;

// Reads a speed in baud: digits with or without blanks around them. Returns 0 for other texts.
int SpeedOf(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  text.remove_suffix(text.size() - (text.find_last_not_of(' ') + 1));
  int speed = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, speed);
  return error == std::errc() && stop == end ? std::max(speed, 0) : 0;
}

}  // namespace

void Form_Load(Workspace& w) {
  w.SetUpCom.loaded = true;
  SerialControl& serial = w.platform.Serial();
  ComboBox& ports = w.SetUpCom.CPort;
  for (int number = 1; number <= kHighestPort; ++number) {
    if (serial.Open(number, 9600)) ports.items.push_back("COM" + FormatPicture(number, "##"));
    serial.Close();
  }
  ports.text = ports.items.empty() ? "" : ports.items.front();
}

void Command1_Click(Workspace& w) {
  const std::string_view name = w.SetUpCom.CPort.text;
  const int port = RoundToInt16(TextToNumber(name.substr(std::min<std::size_t>(3, name.size()))));
  const int speed = SpeedOf(w.SetUpCom.Baud.text);
  if (speed == 0 || !w.platform.Serial().Open(port, speed)) {
    w.SetUpCom.Text1.text = "COM PORT FAIL";
    return;
  }
  w.RealTime = kTrue;
  w.FollowsReceiver = true;
  w.SetUpCom.visible = false;
  w.Tarnwick.UseNMEA.caption = kPauseCaption;
}

void CloseFrame(Workspace& w) {
  w.SetUpCom.visible = false;
  if (!w.platform.Serial().IsOpen()) w.RealTime = kFalse;
}

}  // namespace SetUpCom
