// A receiver on a pseudo terminal, which represents a serial device.
#pragma once

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "program_test.h"

// A receiver that is plugged in under a device's name until it is destroyed.
struct Receiver {
  explicit Receiver(const QString& name) : link(name) {
    EXPECT_TRUE(unlockpt(terminal) == 0 && QFile::link(ptsname(terminal), link));
    device = open(link.toUtf8(), O_RDWR | O_NOCTTY);
  }
  ~Receiver() {
    QFile::remove(link);
    close(device);
    close(terminal);
  }
  void Write(const std::string& characters) const {
    EXPECT_EQ(write(terminal, characters.data(), characters.size()),
              static_cast<ssize_t>(characters.size()));
  }
  // Returns when the port has read the characters.
  void Send(const std::string& characters) const {
    Write(characters);
    QTest::qWait(20);  // the system passes them on with a delay
    int unread = 1;
    EXPECT_TRUE(Eventually([&] { return ioctl(device, FIONREAD, &unread) != 0 || unread == 0; }));
  }

  int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  QString link;
  int device = -1;
};
