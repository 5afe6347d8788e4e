#include "platform/qt/pointing_window.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <utility>

#include "platform/desktop/qt_text.h"
#include "platform/qt/layout_helpers.h"
#include "pointing/compass.h"

namespace {

// A margin for the letters: the N begins above the top of the picture.
constexpr double kEdge = 1.1 * kCompassEdge;

// With larger letters the N would touch the circle.
constexpr PictureScale kCompass{.axes = {-kEdge, -kEdge, 2 * kEdge, 2 * kEdge},
                                .letterSize = 0.16,
                                .penWidth = 0.015,
                                .designHeight = 105};

}  // namespace

PointingWindowView::PointingWindowView(CommandRunner& runner, QWidget& mainWindow)
    : RecordWindow(runner, runner.w.BearingCalc),
      mainWindow_(mainWindow),
      C_(new PictureView(record_.C, kCompass, this)) {
  // The user types the next place in the main window, so the main window keeps the focus.
  setAttribute(Qt::WA_ShowWithoutActivating);
  BearText_->setFont(FontAtLeast(this, 17.25, true));
  BackBearText_->setFont(FontAtLeast(this, 12, true));
  DistText_->setFont(FontAtLeast(this, 12, true));
  SetMinimumWidthFor(BearText_, "000.0");
  SetMinimumWidthFor(DistText_, "00000.000");
  SetMinimumWidthFor(UncertText_, "00.000deg / 00.00km / ");
  Ipt_->setAccessibleName("Input");

  auto* grid = new QGridLayout(this);
  grid->addWidget(Ipt_, 0, 0, 1, 3);
  int row = 0;
  for (const auto& [label, field] :
       {std::pair(Label5_, BearText_), std::pair(Label6_, BackBearText_),
        std::pair(Label4_, DistText_), std::pair(Label12_, UncertText_)}) {
    label->setBuddy(field);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(label, ++row, 0);
    grid->addWidget(field, row, 1);
  }
  // Only the compass grows with the window.
  for (QLineEdit* field : {BearText_, BackBearText_, DistText_, UncertText_})
    field->setMaximumWidth(UncertText_->minimumWidth());
  grid->addWidget(C_, 1, 2, row + 1, 1);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(row + 1, 1);
  mainWindow.installEventFilter(this);

  binder_.Bind(C_, NameOf(&PointingWindow::C), "", [this] { ShowCompass(); });
  setFocusProxy(Ipt_);
  ResizeToDesign();
}

void PointingWindowView::ShowCompass() {
  C_->setVisible(record_.C.visible);
  const QString name = record_.C.operations.empty()
                           ? "Compass"
                           : QString("Bearing %1 degrees").arg(ToQt(record_.BearText.text));
  if (C_->accessibleName() != name) C_->setAccessibleName(name);
  C_->update();
}

// Avoids the main window: to its right, below, to its left or above, wherever the screen has room.
// Keeps a position that the user chose.
QPoint PointingWindowView::PlaceFor(QPoint wanted) const {
  const QPoint reachable = FramedWindow::PlaceFor(wanted);
  const QSize size = frameGeometry().size();
  const QRect main = mainWindow_.frameGeometry();
  if (IsMovedByUser() || !main.intersects(QRect(reachable, size))) return reachable;
  const QRect screen = ScreenAt(main.center());
  const QPoint places[] = {{main.right() + 1, main.top()},
                           {main.left(), main.bottom() + 1},
                           {main.left() - size.width(), main.top()},
                           {main.left(), main.top() - size.height()}};
  for (const QPoint& place : places)
    if (screen.contains(QRect(place, size))) return place;
  return {screen.right() + 1 - size.width(), screen.bottom() + 1 - size.height()};
}

// Keys that no field wants are for the main window, where the user types the next place.
void PointingWindowView::keyPressEvent(QKeyEvent* event) {
  QApplication::sendEvent(&mainWindow_, event);
}

bool PointingWindowView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &mainWindow_ && isVisible()) {
    // After the user picks a result, the Results window would cover the figures.
    if (event->type() == QEvent::WindowActivate) raise();
    // The main window may have grown into its listing layout.
    const bool overlaps = mainWindow_.frameGeometry().intersects(frameGeometry());
    if (event->type() == QEvent::Resize && overlaps && !IsMovedByUser()) Place();
  }
  return RecordWindow::eventFilter(watched, event);
}
