// Tests of the windows share one application, without a screen.
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
#ifndef _WIN32  // Wine has a screen
  qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
  qputenv("TARNWICK_FIELD_NAMES", "1");
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
