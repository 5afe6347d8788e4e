#include "gps/real_time.h"

#include "gps/port_setup.h"

namespace {

void ClosePort(Workspace& w) {
  SerialControl& serial = w.platform.Serial();
  if (serial.IsOpen()) serial.Close();
  w.FollowsReceiver = false;
}

// A device that goes away closes its port and changes nothing else.
bool HasLostDevice(Workspace& w) {
  return w.FollowsReceiver && !w.platform.Serial().IsOpen();
}

}  // namespace

void UseNMEA_Click(Workspace& w) {
  if (w.RealTime == kTrue && !HasLostDevice(w)) {
    w.RealTime = kFalse;
    ClosePort(w);
    w.Tarnwick.UseNMEA.caption = kResumeCaption;
    return;
  }
  SetUpCom::Load(w);
  w.SetUpCom.visible = true;
  w.platform.SetFocus(WindowName::SetUpCom);
  w.RealTime = kTrue;
  w.FollowsReceiver = false;
  w.SetUpCom.left = w.Tarnwick.width + w.Tarnwick.left - 1000;
  w.SetUpCom.top = w.Tarnwick.top + 1000;
}

void EndRealTime(Workspace& w) {
  ClosePort(w);
  w.RealTime = kFalse;
  w.Tarnwick.UseNMEA.caption = kRealTimeCaption;
}
