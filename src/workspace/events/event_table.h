// The table of all user actions and the commands that they run. The real windows and the headless
// driver look up every command here.
#pragma once

#include <string_view>

#include "platform/platform.h"
#include "workspace/record/workspace.h"

// What a user does to a control, or to the frame of a window.
enum class UserAction { Click, DoubleClick, CloseFrame };

// One row of the table.
struct Event {
  WindowName window;
  std::string_view control;  // its name in the record; empty for the frame of the window
  UserAction action;
  void (*run)(Workspace& w);
  bool readsDatabase = false;  // may take long: front ends show a wait cursor
  const char* key = nullptr;   // key that does the same, such as "Alt+I"; null if there is none
};

// Returns the row for an action on a control, or null if that action runs no command. Every window
// has a row for CloseFrame.
const Event* FindEvent(WindowName window, std::string_view control, UserAction action);
