#include "platform/qt/application.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QShortcut>
#include <QTimer>
#include <QUrl>
#include <algorithm>

#include "gps/nmea_receiver.h"
#include "platform/qt/other_windows.h"
#include "sites/listing/listing.h"
#include "workspace/events/start_and_exit.h"

Application::Application() {
  desktop.showRecord = [this] { runner.Refresh(); };
  // Queued, because the window may appear only after the command that asks for the focus.
  desktop.focusWindow = [this](WindowName name) {
    QTimer::singleShot(0, &mainWindow, [this, name] { WindowOf(name).BringToFront(); });
  };
  desktop.serial.onComm = [this] { return runner.Run(SetUpCom::MSComm1_OnComm); };
  desktop.onViewerFailure = [this] { return runner.Run(ReportListingError); };
  runner.onIdle = [this] { desktop.serial.Recheck(); };
  mainWindow.onClosed = [this] {
    desktop.FlushSettings();
    if (onEnd) onEnd();
  };
  AddKeys(mainWindow);
  runner.AddRefresher([this] {
    EachWindow(w, [this](WindowName name, const char* /*objectName*/, const Window& state) {
      if (state.visible) WindowOf(name);
    });
  });
}

void Application::AddKeys(FramedWindow& window) {
  new QShortcut(Qt::Key_F1, &window, [this] { OpenManual(); });
  new QShortcut(Qt::Key_F6, &window, [this, &window] {
    const std::vector<FramedWindow*> cycle = VisibleWindows();
    const auto at = std::find(cycle.begin(), cycle.end(), &window);
    (at == cycle.end() || at + 1 == cycle.end() ? cycle.front() : *(at + 1))->BringToFront();
  });
}

std::vector<FramedWindow*> Application::VisibleWindows() {
  std::vector<FramedWindow*> visible{&mainWindow};
  for (const auto& window : others_)
    if (window && window->isVisible()) visible.push_back(window.get());
  return visible;
}

FramedWindow& Application::WindowOf(WindowName name) {
  if (name == WindowName::Tarnwick) return mainWindow;
  std::unique_ptr<FramedWindow>& window = others_[static_cast<std::size_t>(name)];
  if (window) return *window;
  window = name == WindowName::BearingCalc ? MakePointingWindow(runner, mainWindow)
           : name == WindowName::ShowList  ? MakeResultsWindow(runner)
                                           : MakeSetUpWindow(runner);
  AddKeys(*window);
  return *window;
}

void Application::OpenManual() {
  const QString program = QApplication::applicationDirPath();
  for (const char* page : {"/manual/index.html", "/../share/doc/tarnwick/html/index.html",
                           "/../../docs/manual.md", "/../../../docs/manual.md"}) {
    const QString file = QFileInfo(program + page).canonicalFilePath();
    if (!file.isEmpty() && QDesktopServices::openUrl(QUrl::fromLocalFile(file))) return;
  }
  runner.Run([](Workspace& record) {
    record.platform.MsgBox("The manual is not installed, or no browser could be started.");
  });
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
