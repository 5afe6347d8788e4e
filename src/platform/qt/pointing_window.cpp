#include "platform/qt/other_windows.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>

#include "platform/desktop/qt_text.h"

namespace {

class PointingWindowView : public RecordWindow<PointingWindow> {
 public:
  PointingWindowView(CommandRunner& runner, QWidget& mainWindow)
      : RecordWindow(runner, runner.w.BearingCalc), mainWindow_(mainWindow) {
    // The user types the next place in the main window, so the main window keeps the focus.
    setAttribute(Qt::WA_ShowWithoutActivating);
    QLineEdit* place = WidgetOf(&PointingWindow::Ipt);
    QLineEdit* accuracy = WidgetOf(&PointingWindow::UncertText);
    PictureView* compass = WidgetOf(&PointingWindow::C);
    place->setAccessibleName("Input");
    SetMinimumWidthFor(accuracy, "00.000deg / 00.00km / ");

    auto* grid = new QGridLayout(this);
    grid->addWidget(place, 0, 0, 1, 3);
    const struct {
      Label PointingWindow::*caption;
      TextBox PointingWindow::*figure;
      double points;
      bool bold;
    } figures[] = {{&PointingWindow::Label5, &PointingWindow::BearText, 17.25, true},
                   {&PointingWindow::Label6, &PointingWindow::BackBearText, 12, true},
                   {&PointingWindow::Label4, &PointingWindow::DistText, 12, true},
                   {&PointingWindow::Label12, &PointingWindow::UncertText, 0, false}};
    int row = 0;
    for (const auto& [caption, figure, points, bold] : figures) {
      QLineEdit* field = WidgetOf(figure);
      field->setFont(FontAtLeast(this, points, bold));
      field->setFixedWidth(accuracy->minimumWidth());  // only the compass grows with the window
      WidgetOf(caption)->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
      AddLabelled(grid, WidgetOf(caption), field, ++row, 0);
    }
    grid->addWidget(compass, 1, 2, row + 1, 1);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(row + 1, 1);
    setFocusProxy(place);
    mainWindow.installEventFilter(this);
    runner.AddRefresher([this, compass] {
      const QString name = record_.C.operations.empty()
                               ? "Compass"
                               : QString("Bearing %1 degrees").arg(ToQt(record_.BearText.text));
      // Qt announces every call of the setter as a change.
      if (compass->accessibleName() != name) compass->setAccessibleName(name);
    });
  }

 protected:
  // Avoids the main window: the first free position to its right, below, to its left or above.
  // Keeps a position that the user chose.
  QPoint FramePositionFor(QPoint wanted) const override {
    const QPoint reachable = FramedWindow::FramePositionFor(wanted);
    const QSize size = frameGeometry().size();
    const QRect main = mainWindow_.frameGeometry();
    if (IsMovedByUser() || !main.intersects(QRect(reachable, size))) return reachable;
    const QRect screen = ScreenAt(main.center());
    for (const QPoint place :
         {QPoint(main.right() + 1, main.top()), QPoint(main.left(), main.bottom() + 1),
          QPoint(main.left() - size.width(), main.top()),
          QPoint(main.left(), main.top() - size.height())})
      if (screen.contains(QRect(place, size))) return place;
    return {screen.right() + 1 - size.width(), screen.bottom() + 1 - size.height()};
  }

  // Passes unused keys on to the main window, where the user types the next place.
  void keyPressEvent(QKeyEvent* event) override { QApplication::sendEvent(&mainWindow_, event); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == &mainWindow_ && isVisible()) {
      // On a small screen the limits of a listing must be visible; there are no figures then.
      const bool isListing = runner_.w.Tarnwick.MakeList.visible;
      // After the user picks a result, the Results window would cover the figures.
      if (event->type() == QEvent::WindowActivate && !isListing) raise();
      // The main window may have grown into its listing layout.
      if (event->type() == QEvent::Resize && OverlapsMainWindow()) {
        if (!IsMovedByUser()) ShowPosition();
        if (isListing && OverlapsMainWindow()) mainWindow_.raise();
      }
    }
    return RecordWindow::eventFilter(watched, event);
  }

 private:
  bool OverlapsMainWindow() const {
    return mainWindow_.frameGeometry().intersects(frameGeometry());
  }

  QWidget& mainWindow_;
};

}  // namespace

std::unique_ptr<FramedWindow> MakePointingWindow(CommandRunner& runner, QWidget& mainWindow) {
  return std::make_unique<PointingWindowView>(runner, mainWindow);
}
