// The entry point: reads the command line, starts the program and runs the event loop.
#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QTimer>

#include "platform/desktop/termination.h"
#include "platform/qt/application.h"

int main(int argc, char** argv) {
  QCoreApplication::setApplicationName("tarnwick");
  QCoreApplication::setApplicationVersion(TARNWICK_VERSION);
  QCommandLineParser parser;
  parser.setApplicationDescription("Locators, grid references, distances and bearings.");
  // Qt's own options, such as -platform, have one dash.
  parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument(
      "PLACE", "A place to start with, in words joined by blanks; after -- it may begin with -.",
      "[PLACE...]");
  parser.parse(QStringList(argv, argv + argc));
  if (parser.isSet("version") || parser.isSet("help") || parser.isSet("help-all")) {
    const QCoreApplication console(argc, argv);
    parser.process(console);
  }

  const QApplication qt(argc, argv);
  parser.process(qt);
  QApplication::setApplicationName(kProgramTitle);
  // Some task bars ignore the window icon and use the icon of the desktop entry with this name.
  QApplication::setDesktopFileName("org.tarnwick.tarnwick");
  QApplication::setWindowIcon(QIcon(":/tarnwick.svg"));
  // Closing the Pointing window must not end the program while the main window is minimised.
  QApplication::setQuitOnLastWindowClosed(false);

  Application application;
  application.onEnd = [] { QApplication::quit(); };
  OnTermination([&application] { application.End(); });
  // Queued, because a message box at the start can end the program, and quit() needs the event
  // loop.
  QTimer::singleShot(0, [&] { application.Start(parser.positionalArguments().join(' ')); });
  return QApplication::exec();
}
