// first_paint empty|program: ends as soon as the first window has been painted. `empty` is a window
// with sixty fields and no program.
#include <QApplication>
#include <QGridLayout>
#include <QLineEdit>
#include <QTimer>
#include <cstdlib>
#include <string_view>

#include "platform/qt/application.h"

namespace {

struct EndAtPaint : QObject {
  bool eventFilter(QObject* object, QEvent* event) override {
    if (object->isWidgetType() && event->type() == QEvent::Paint)
      QTimer::singleShot(0, [] { std::_Exit(0); });
    return false;
  }
};

}  // namespace

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  EndAtPaint end;
  application.installEventFilter(&end);
  if (count > 1 && std::string_view(arguments[1]) == "program") {
    Application program;
    program.Start();
    return QApplication::exec();
  }
  QWidget window;
  auto* grid = new QGridLayout(&window);
  for (int i = 0; i < 60; ++i) grid->addWidget(new QLineEdit("x"), i / 6, i % 6);
  window.show();
  return QApplication::exec();
}
