// The running program: the record, the desktop and the windows together.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <vector>

#include "platform/desktop/desktop_platform.h"
#include "platform/qt/main_window.h"

// The constructor makes the main window, which stays hidden until Start.
struct Application {
  Application();

  // Runs the start-up, which shows the windows, and then uses `place` unless it is empty.
  void Start(const QString& place = {});
  // Closes an open message box and then the main window.
  void End();
  // Returns the window on screen for a window of the record. The first call creates it, so that the
  // start creates only the windows that it shows.
  FramedWindow& WindowOf(WindowName name);
  // Returns the visible windows, in the order in which F6 brings them to the front. F6 is for
  // systems without a window manager.
  std::vector<FramedWindow*> VisibleWindows();
  // Opens the manual in the desktop's browser: the HTML page beside the program or of the installed
  // package; without one, the text that it is made from in the source. Shows a message if none can
  // be opened. F1 runs it.
  void OpenManual();
  // Called when the main window is closed and the settings are stored.
  std::function<void()> onEnd;

  Desktop desktop;
  Workspace w{desktop};
  CommandRunner runner{w};
  MainWindowView mainWindow{runner};

 private:
  void AddKeys(FramedWindow& window);

  std::array<std::unique_ptr<FramedWindow>, 4> others_;  // by WindowName
};
