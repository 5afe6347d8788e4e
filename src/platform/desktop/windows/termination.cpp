#include "platform/desktop/termination.h"

#include <windows.h>

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <utility>

namespace {

// Windows sends WM_ENDSESSION to each window of the program, after all programs have agreed to the
// end of the session, and may end the process once the last window has answered.
struct EndOfSession : QAbstractNativeEventFilter {
  bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
    const MSG& arrived = *static_cast<const MSG*>(message);
    if (arrived.message == WM_ENDSESSION && arrived.wParam != 0 && end) std::exchange(end, {})();
    return false;
  }

  std::function<void()> end;  // empty after its call
};

}  // namespace

void OnTermination(const std::function<void()>& end) {
  static EndOfSession filter;
  filter.end = end;
  QCoreApplication::instance()->installNativeEventFilter(&filter);
}
