// The roof: starts the program and runs the event loop.
#include <QApplication>
#include <QIcon>

#include "platform/desktop/termination.h"
#include "platform/qt/application.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(kProgramTitle);
  // By the desktop entry a task bar knows what the windows belong to, if it does not take their
  // icon.
  QApplication::setDesktopFileName("org.tarnwick.tarnwick");
  QApplication::setWindowIcon(QIcon(":/tarnwick.svg"));
  // Closing the Pointing window must not end the program while the main window is minimised.
  QApplication::setQuitOnLastWindowClosed(false);

  Program program;
  program.onEnd = [] { QApplication::quit(); };
  OnTermination([&program] { program.End(); });
  program.Start();
  return QApplication::exec();
}
