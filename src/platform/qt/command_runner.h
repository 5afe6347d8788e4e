// Runs the user's commands on the record, one at a time, and refreshes the windows after each.
#pragma once

#include <functional>
#include <list>
#include <utility>

#include "workspace/events/event_table.h"

// The program has one.
class CommandRunner {
 public:
  explicit CommandRunner(Workspace& record) : w(record) {}

  Workspace& w;

  // Runs a command, then refreshes the windows and calls onIdle. Returns false, and does nothing,
  // while another command runs, such as one that shows a message box.
  bool Run(const std::function<void(Workspace&)>& command);
  // Runs the command of a user action, with a wait cursor if it reads the database.
  bool Run(const Event& event);
  bool IsBusy() const { return busy_; }
  std::function<void()> onIdle;

  // Makes the windows show the record.
  void Refresh() {
    for (const auto& refresh : refreshers_) refresh();
  }
  // Calls `refresh` on every Refresh, including one that is running.
  void AddRefresher(std::function<void()> refresh) { refreshers_.push_back(std::move(refresh)); }

 private:
  // A list, because a refresh may create a window, which adds refreshers while others run.
  std::list<std::function<void()>> refreshers_;
  bool busy_ = false;
};
