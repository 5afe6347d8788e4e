#include "platform/qt/program.h"

#include "gps/nmea_receiver.h"
#include "workspace/startup.h"

Program::Program() {
  desktop.showRecord = [this] { mirror.Show(); };
  desktop.focusWindow = [this](WindowName) {
    mainWindow.raise();
    mainWindow.activateWindow();
  };
  desktop.serial.onComm = [this] { return mirror.Run(SetUpCom::MSComm1_OnComm); };
  mirror.onIdle = [this] { desktop.serial.Remind(); };

  mainWindow.onClose = [this] {
    mirror.Run(Form_Unload);
    desktop.settings.Flush();
    if (onEnd) onEnd();
  };
  pointing.onClose = [this] {
    mirror.Run([](Workspace& record) { record.BearingCalc.visible = false; });
  };
  setUp.onClose = [this] {
    mirror.Run([](Workspace& record) { record.SetUpCom.visible = false; });
  };
  results.onClose = [this] { mirror.Run([](Workspace& record) { record.ShowList = {}; }); };
}

void Program::Start() {
  mirror.Run(Form_Load);
}
