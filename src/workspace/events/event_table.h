// Which action of the user runs which command. The real windows and the headless driver look all
// commands up here.
#pragma once

#include <string_view>

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
  const char* key = nullptr;   // does the same as the action, such as "Alt+I"
};

// The row for an action on a control; null if that action runs no command.
const Event* FindEvent(WindowName window, std::string_view control, UserAction action);

// The row for closing a window by its frame; every window has one.
const Event& CloseFrameEvent(WindowName window);
