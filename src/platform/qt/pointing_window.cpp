#include "platform/qt/pointing_window.h"

#include <QGridLayout>
#include <QLineEdit>
#include <utility>

#include "platform/desktop/qt_text.h"
#include "platform/qt/layout_helpers.h"
#include "pointing/compass.h"

namespace {

constexpr double kEdge = kCompassEdge;

// With smaller letters the N would leave the top of the compass, with larger ones touch the circle.
constexpr PictureScale kCompass{.axes = {-kEdge, -kEdge, 2 * kEdge, 2 * kEdge},
                                .letterSize = 0.17,
                                .penWidth = 0.016,
                                .designHeight = 96};

}  // namespace

PointingWindowView::PointingWindowView(CommandRunner& runner, const QWidget& mainWindow)
    : RecordWindow(runner, runner.w.BearingCalc),
      mainWindow_(mainWindow),
      C_(new PictureView(record_.C, kCompass, this)) {
  // The next place is typed in the main window, so that keeps the focus.
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
  grid->addWidget(C_, 1, 2, row, 1);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(row + 1, 1);

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

// A window designed above the screen would come down onto the main window. Beside or below that is
// better, where the screen has room.
QPoint PointingWindowView::PlaceFor(QPoint wanted) const {
  const QPoint reachable = FramedWindow::PlaceFor(wanted);
  const QRect main = mainWindow_.frameGeometry();
  if (reachable.y() == wanted.y() || !main.intersects(QRect(reachable, size()))) return reachable;
  const QRect screen = ScreenAt(main.center());
  const QPoint beside(main.right() + 1, reachable.y());
  const QPoint below(main.left(), main.bottom() + 1);
  for (const QPoint& place : {beside, below})
    if (screen.contains(QRect(place, size()))) return place;
  return reachable;
}
