// The running program: the record, the desktop and the windows together.
#pragma once

#include <array>
#include <functional>

#include "platform/desktop/desktop_platform.h"
#include "platform/qt/main_window.h"
#include "platform/qt/pointing_window.h"
#include "platform/qt/results_window.h"
#include "platform/qt/setup_window.h"

// The constructor makes the windows, which stay hidden until Start.
struct Application {
  Application();

  // Runs the start-up, which shows the windows, and then uses `place` unless it is empty.
  void Start(const QString& place = {});
  // Closes an open message box and then the main window.
  void End();
  // Returns the window on screen for a window of the record.
  FramedWindow& WindowOf(WindowName name);
  // Brings the next visible window of the cycle to the front. F6 does it, for systems without a
  // window manager.
  void ActivateNextWindow(const FramedWindow* window);
  // Called when the main window is closed and the settings are stored.
  std::function<void()> onEnd;

  Desktop desktop;
  Workspace w{desktop};
  CommandRunner runner{w};
  MainWindowView mainWindow{runner};
  PointingWindowView pointing{runner, mainWindow};
  ResultsWindowView results{runner};
  SetUpWindowView setUp{runner};
  const std::array<FramedWindow*, 4> windowCycle{&mainWindow, &pointing, &results, &setUp};
};
