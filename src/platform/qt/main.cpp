// The roof: starts the program and runs the event loop.
#include <QApplication>

#include "platform/qt/program.h"
#include "platform/qt/termination.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(kProgramTitle);
  // Closing the Pointing window must not end the program while the main window is minimised.
  QApplication::setQuitOnLastWindowClosed(false);

  Program program;
  program.onEnd = [] { QApplication::quit(); };
  OnTermination([&program] { program.End(); });
  program.Start();
  return QApplication::exec();
}
