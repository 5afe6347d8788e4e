#include "gps/port_setup.h"

#include "platform/serial_settings.h"
#include "workspace/values/number_text.h"
#include "workspace/values/rounding.h"
#include "workspace/values/strings.h"

namespace SetUpCom {

namespace {

constexpr int kInBufferSize = 128;  // characters
constexpr int kThreshold = 64;      // characters

// The number in an entry such as COM12: what follows its first three characters.
std::int16_t PortNumber(const std::string& entry) {
  return RoundToInt16(TextToNumber(MidOf(entry, 4)));
}

// Opens the port and speed that the window shows; false if any step fails.
bool OpenPort(SerialControl& serial, const SetUpWindow& window) {
  if (!serial.SetCommPort(PortNumber(window.CPort.text))) return false;
  serial.SetInBufferSize(kInBufferSize);
  if (!serial.SetSettings(window.Baud.text + ",n,8,1")) return false;
  serial.SetRThreshold(kThreshold);
  return serial.Open();
}

}  // namespace

void Load(Workspace& w) {
  if (w.SetUpCom.loaded) return;
  w.SetUpCom.loaded = true;
  Form_Load(w);
}

void Form_Load(Workspace& w) {
  SerialControl& serial = w.platform.Serial();
  ComboBox& ports = w.SetUpCom.CPort;
  for (int number = 1; number <= kHighestPort; ++number) {
    if (serial.SetCommPort(static_cast<std::int16_t>(number)) && serial.Open())
      ports.items.push_back("COM" + FormatPicture(number, "##"));
    serial.Close();
  }
  ports.text = ports.items.empty() ? "" : ports.items.front();
}

void Command1_Click(Workspace& w) {
  if (!OpenPort(w.platform.Serial(), w.SetUpCom)) {
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
