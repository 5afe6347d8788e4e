#include "platform/desktop/termination.h"

#include <windows.h>

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

namespace {

// The message comes to each window, once all programs have agreed to the end; after the last
// answer the process may be gone.
struct EndOfSession : QAbstractNativeEventFilter {
  explicit EndOfSession(std::function<void()> whatToDo) : end(std::move(whatToDo)) {}

  bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
    const MSG& arrived = *static_cast<const MSG*>(message);
    if (arrived.message == WM_ENDSESSION && arrived.wParam != 0 && !ended) {
      ended = true;
      end();
    }
    return false;
  }

  std::function<void()> end;
  bool ended = false;
};

}  // namespace

void OnTermination(const std::function<void()>& end) {
  static EndOfSession filter(end);
  QCoreApplication::instance()->installNativeEventFilter(&filter);
}
