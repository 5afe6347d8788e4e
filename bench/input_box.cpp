// input_box PORT SPEED SECONDS [DEVICES]: starts the program, opens the port by clicks and prints
// what the input box shows: a line for each text, "READY" at first, after it was painted:
//   MILLISECONDS SINCE 1970 | TEXT
// DEVICES is the folder of the serial devices, if not that of the system.
#include <QApplication>
#include <QComboBox>
#include <QDateTime>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <cstdio>

#include "platform/qt/application.h"

namespace {

struct PaintedTexts : QObject {
  bool eventFilter(QObject* box, QEvent* event) override {
    const QString text = static_cast<QLineEdit*>(box)->text();
    if (event->type() != QEvent::Paint || text == shown) return false;
    shown = text;
    // The event reaches the box after this filter; the timer fires when it has been painted.
    QTimer::singleShot(0, this, [text] { Print(text); });
    return false;
  }
  static void Print(const QString& text) {
    const auto now = static_cast<long long>(QDateTime::currentMSecsSinceEpoch());
    std::printf("%lld | %s\n", now, text.toUtf8().constData());
    std::fflush(stdout);
  }

  QString shown;
};

}  // namespace

int main(int count, char** arguments) {
  const QApplication qt(count, arguments);
  const QStringList words = QApplication::arguments();
  if (words.size() < 4) return 1;
  Application program;
  if (words.size() > 4) program.desktop.serial.deviceFolder = words[4];
  program.Start();
  PaintedTexts painted;
  program.mainWindow.findChild<QLineEdit*>("InputText")->installEventFilter(&painted);

  FramedWindow& setUp = program.WindowOf(WindowName::SetUpCom);
  program.mainWindow.findChild<QPushButton*>("UseNMEA")->click();
  setUp.findChild<QComboBox*>("CPort")->setEditText(words[1]);
  setUp.findChild<QComboBox*>("Baud")->setEditText(words[2]);
  setUp.findChild<QPushButton*>("Command1")->click();
  if (!program.desktop.serial.IsOpen()) return 1;
  QTimer::singleShot(1000, &painted, [] { PaintedTexts::Print("READY"); });
  QTimer::singleShot(words[3].toInt() * 1000, &qt, &QApplication::quit);
  return QApplication::exec();
}
