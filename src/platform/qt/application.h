// The running program: the record, the desktop and the windows, joined.
#pragma once

#include <array>
#include <functional>

#include "platform/desktop/desktop_platform.h"
#include "platform/qt/main_window.h"
#include "platform/qt/pointing_window.h"
#include "platform/qt/results_window.h"
#include "platform/qt/setup_window.h"

// Made, then started; the windows are there, hidden, before the start.
struct Program {
  Program();

  // Runs the start-up and shows the windows.
  void Start();
  // Closes the main window, and first whatever stands before it.
  void End();
  // The window on screen of a window of the record.
  FramedWindow& WindowOf(WindowName name);
  // Goes from a window on screen to the next one, as F6 does: there may be no window manager.
  void GoOnFrom(const FramedWindow* window);
  // Called when the main window has been closed and everything is stored.
  std::function<void()> onEnd;

  Desktop desktop;
  Workspace w{desktop};
  Mirror mirror{w};
  MainWindowView mainWindow{mirror};
  PointingWindowView pointing{mirror, mainWindow};
  ResultsWindowView results{mirror};
  SetUpWindowView setUp{mirror};
  const std::array<FramedWindow*, 4> round{&mainWindow, &pointing, &results, &setUp};
};
