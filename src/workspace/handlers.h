// Which control of which window runs which command. Front ends look commands up here.
#pragma once

#include <string_view>

#include "workspace/workspace.h"

// A control and the command that a click on it runs.
struct Handler {
  WindowName window;
  std::string_view control;
  void (*run)(Workspace& w);
  bool readsDatabase = false;  // may take long
};

// The command behind a click on a control; none for a control without one.
const Handler* ClickHandler(WindowName window, std::string_view control);
