#include "platform/desktop/termination.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <cerrno>
#include <csignal>

namespace {

int pipeEnds[2] = {-1, -1};

// Wakes the event loop through a pipe: write is one of the few calls allowed in a signal handler.
void OnSignal(int /*signal*/) {
  const int errorOfInterruptedCode = errno;
  const char mark = 0;
  [[maybe_unused]] const ssize_t written = write(pipeEnds[1], &mark, 1);
  errno = errorOfInterruptedCode;
}

}  // namespace

void OnTermination(const std::function<void()>& end) {
  if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) return;
  auto* notifier =
      new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, QCoreApplication::instance());
  QObject::connect(notifier, &QSocketNotifier::activated, notifier, [notifier, end] {
    notifier->setEnabled(false);
    end();
  });
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction action {};
    action.sa_handler = OnSignal;
    action.sa_flags = SA_RESTART;
    // SIGTERM and SIGHUP keep the handler: the end of a session sends several of them.
    if (signal == SIGINT) action.sa_flags |= static_cast<int>(SA_RESETHAND);
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
  }
}
