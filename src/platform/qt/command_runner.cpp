#include "platform/qt/command_runner.h"

#include <QApplication>
#include <QScopeGuard>

bool CommandRunner::Run(const std::function<void(Workspace&)>& command) {
  if (busy_) return false;
  busy_ = true;
  command(w);
  busy_ = false;
  Refresh();
  if (onIdle) onIdle();
  return true;
}

bool CommandRunner::Run(const Event& event) {
  if (!event.readsDatabase) return Run(event.run);
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const auto restoreCursor = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
  return Run(event.run);
}

void CommandRunner::Refresh() {
  // By index: a refresher may create a window, which adds refreshers.
  for (std::size_t i = 0; i < refreshers_.size(); ++i)  // NOLINT(modernize-loop-convert)
    refreshers_[i]();
}
