#include "platform/desktop/termination.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <csignal>

namespace {

int pipeEnds[2] = {-1, -1};

// In a signal handler little more than a write is allowed.
void Tell(int /*signal*/) {
  const char mark = 0;
  [[maybe_unused]] const ssize_t written = write(pipeEnds[1], &mark, 1);
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
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, Tell);
}
