#include "platform/qt/application.h"

#include <QApplication>
#include <QShortcut>
#include <QTimer>
#include <algorithm>

#include "gps/nmea_receiver.h"
#include "sites/listing/listing.h"
#include "workspace/events/start_and_exit.h"

Application::Application() {
  desktop.showRecord = [this] { runner.Refresh(); };
  // Queued, because the command that asks may also be what shows the window.
  desktop.focusWindow = [this](WindowName name) {
    QTimer::singleShot(0, &mainWindow, [this, name] { WindowOf(name).BringToFront(); });
  };
  desktop.serial.onComm = [this] { return runner.Run(SetUpCom::MSComm1_OnComm); };
  desktop.onViewerFailure = [this] { return runner.Run(ReportListingError); };
  runner.onIdle = [this] { desktop.Recheck(); };
  mainWindow.onClosed = [this] {
    desktop.FlushSettings();
    if (onEnd) onEnd();
  };
  for (FramedWindow* window : windowCycle) {
    auto* next = new QShortcut(Qt::Key_F6, window);
    QObject::connect(next, &QShortcut::activated, window,
                     [this, window] { ActivateNextWindow(window); });
  }
}

void Application::ActivateNextWindow(const FramedWindow* window) {
  const auto* next = std::find(windowCycle.begin(), windowCycle.end(), window);
  do {
    if (++next == windowCycle.end()) next = windowCycle.begin();
  } while (!(*next)->isVisible());
  (*next)->BringToFront();
}

FramedWindow& Application::WindowOf(WindowName name) {
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

void Application::End() {
  if (!runner.IsBusy()) {
    mainWindow.close();
    return;
  }
  if (QWidget* box = QApplication::activeModalWidget()) box->close();
  QTimer::singleShot(0, &mainWindow, [this] { End(); });
}

void Application::Start(const QString& place) {
  runner.Run(Form_Load);
  if (!place.isEmpty()) mainWindow.UsePlace(place);
}
