#include "platform/qt/application.h"

#include <QApplication>
#include <QShortcut>
#include <QTimer>
#include <algorithm>

#include "gps/nmea_receiver.h"
#include "sites/listing/listing.h"
#include "workspace/events/start_and_exit.h"

Program::Program() {
  desktop.showRecord = [this] { mirror.Show(); };
  // Queued: the window may be shown by the command that asks.
  desktop.focusWindow = [this](WindowName name) {
    QTimer::singleShot(0, &mainWindow, [this, name] { WindowOf(name).ToFront(); });
  };
  desktop.serial.onComm = [this] { return mirror.Run(SetUpCom::MSComm1_OnComm); };
  desktop.onViewerFailure = [this] { return mirror.Run(ReportListingError); };
  mirror.onIdle = [this] { desktop.Recheck(); };

  mainWindow.onClose = [this] {
    mirror.Run(CloseFrameEvent(WindowName::Tarnwick));
    desktop.settings.Flush();
    if (onEnd) onEnd();
  };
  for (const WindowName name :
       {WindowName::BearingCalc, WindowName::ShowList, WindowName::SetUpCom})
    WindowOf(name).onClose = [this, name] { mirror.Run(CloseFrameEvent(name)); };

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
