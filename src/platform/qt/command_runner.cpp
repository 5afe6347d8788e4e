#include "platform/qt/command_runner.h"

#include <QApplication>
#include <QScopeGuard>

bool CommandRunner::Run(const std::function<void(Workspace&)>& command) {
  if (busy_) return false;
  {
    busy_ = true;
    const auto endBusy = qScopeGuard([this] { busy_ = false; });
    command(w);
  }
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
