// The running program: the record, the desktop and the windows, joined.
#pragma once

#include <functional>

#include "platform/qt/desktop.h"
#include "platform/qt/main_window.h"
#include "platform/qt/pointing_window.h"
#include "platform/qt/results_window.h"
#include "platform/qt/setup_window.h"

struct Program {
  Program();

  // Runs the start-up and shows the windows.
  void Start();
  // Closes the main window, and first whatever stands before it.
  void End();
  FramedWindow& WindowOf(WindowName name);
  // Called when the main window has been closed and everything is stored.
  std::function<void()> onEnd;

  Desktop desktop;
  Workspace w{desktop};
  Mirror mirror{w};
  MainWindowView mainWindow{mirror};
  PointingWindowView pointing{mirror, mainWindow};
  ResultsWindowView results{mirror};
  SetUpWindowView setUp{mirror};
};
