#include "platform/qt/program.h"

#include <QApplication>
#include <QShortcut>
#include <QTimer>
#include <algorithm>

#include "gps/nmea_receiver.h"
#include "workspace/startup.h"

Program::Program() {
  desktop.showRecord = [this] { mirror.Show(); };
  // Queued: the window may be shown by the command that asks.
  desktop.focusWindow = [this](WindowName name) {
    QTimer::singleShot(0, &mainWindow, [this, name] { WindowOf(name).ToFront(); });
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

  for (FramedWindow* window : round) {
    auto* next = new QShortcut(Qt::Key_F6, window);
    QObject::connect(next, &QShortcut::activated, window, [this, window] { GoOnFrom(window); });
  }
}

void Program::GoOnFrom(const FramedWindow* window) {
  auto next = std::find(round.begin(), round.end(), window);
  do {
    if (++next == round.end()) next = round.begin();
  } while (!(*next)->isVisible());
  (*next)->ToFront();
}

FramedWindow& Program::WindowOf(WindowName name) {
  switch (name) {
    case WindowName::BearingCalc:
      return pointing;
    case WindowName::ShowList:
      return results;
    case WindowName::SetUpCom:
      return setUp;
    default:
      return mainWindow;
  }
}

void Program::End() {
  if (!mirror.IsBusy()) {
    mainWindow.close();
    return;
  }
  if (QWidget* box = QApplication::activeModalWidget()) box->close();
  QTimer::singleShot(0, &mainWindow, [this] { End(); });
}

void Program::Start() {
  mirror.Run(Form_Load);
}
