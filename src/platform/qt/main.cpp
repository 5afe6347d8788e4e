// The roof: joins the record, the desktop and the windows, and runs the event loop.
#include <QApplication>

#include "gps/nmea_receiver.h"
#include "platform/qt/desktop.h"
#include "platform/qt/main_window.h"
#include "platform/qt/pointing_window.h"
#include "platform/qt/results_window.h"
#include "platform/qt/setup_window.h"
#include "workspace/startup.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(kProgramTitle);
  QApplication::setQuitOnLastWindowClosed(false);

  Desktop desktop;
  Workspace w(desktop);
  Mirror mirror(w);
  MainWindowView mainWindow(mirror);
  PointingWindowView pointing(mirror, mainWindow);
  ResultsWindowView results(mirror);
  SetUpWindowView setUp(mirror);

  desktop.showRecord = [&] { mirror.Show(); };
  desktop.focusWindow = [&](WindowName) {
    mainWindow.raise();
    mainWindow.activateWindow();
  };
  desktop.serial.onComm = [&] { return mirror.Run(SetUpCom::MSComm1_OnComm); };
  mirror.onIdle = [&] { desktop.serial.Remind(); };
  mainWindow.onClose = [&] {
    mirror.Run(Form_Unload);
    desktop.settings.Flush();
    QApplication::quit();
  };
  pointing.onClose = [&] { mirror.Run([](Workspace& record) { record.BearingCalc.visible = false; }); };
  setUp.onClose = [&] { mirror.Run([](Workspace& record) { record.SetUpCom.visible = false; }); };
  results.onClose = [&] { mirror.Run([](Workspace& record) { record.ShowList = {}; }); };

  mirror.Run(Form_Load);
  return QApplication::exec();
}
