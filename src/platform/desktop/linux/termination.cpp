#include "platform/desktop/termination.h"

#include <sys/eventfd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <cerrno>
#include <csignal>

namespace {

int wakeUp = -1;

// Wakes the event loop by a write to a file, one of the few calls allowed in a signal handler.
void OnSignal(int signal) {
  const int errorOfInterruptedCode = errno;
  // SIGTERM and SIGHUP keep the handler: the end of a session sends several of them.
  if (signal == SIGINT) std::signal(SIGINT, SIG_DFL);
  (void)eventfd_write(wakeUp, 1);
  errno = errorOfInterruptedCode;
}

}  // namespace

void OnTermination(const std::function<void()>& end) {
  wakeUp = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (wakeUp < 0) return;
  auto* notifier = new QSocketNotifier(wakeUp, QSocketNotifier::Read, QCoreApplication::instance());
  QObject::connect(notifier, &QSocketNotifier::activated, notifier, [notifier, end] {
    notifier->setEnabled(false);
    end();
  });
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, OnSignal);
}
