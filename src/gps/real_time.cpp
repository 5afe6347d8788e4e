#include "gps/real_time.h"

namespace {

void ClosePort(Workspace& w) {
  w.platform.Serial().Close();
  w.FollowsReceiver = false;
}

}  // namespace

void UseNMEA_Click(Workspace& w) {
  const bool hasLostDevice = w.FollowsReceiver && !w.platform.Serial().IsOpen();
  if (w.RealTime == kTrue && !hasLostDevice) {
    w.RealTime = kFalse;
    ClosePort(w);
    w.Tarnwick.UseNMEA.caption = kResumeCaption;
    return;
  }
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
