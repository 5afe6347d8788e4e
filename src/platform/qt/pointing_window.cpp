#include "platform/qt/pointing_window.h"

#include <QGridLayout>
#include <iterator>

namespace {

constexpr const char* kFields[][2] = {{"Label5", "BearText"},
                                      {"Label6", "BackBearText"},
                                      {"Label4", "DistText"},
                                      {"Label12", "UncertText"}};

}  // namespace

PointingWindowView::PointingWindowView(Mirror& mirror, const QWidget& mainWindow)
    : FramedWindow(mirror, mirror.w.BearingCalc, "BearingCalc"),
      main_(mainWindow),
      widgets_(mirror, WindowName::BearingCalc, mirror.w.BearingCalc, this),
      compass_(new CompassPicture(mirror.w.BearingCalc.C, this)) {
  // The next place is typed in the main window, so that keeps the focus.
  setAttribute(Qt::WA_ShowWithoutActivating);
  widgets_["BearText"]->setFont(FontOf(this, 17.25, true));
  widgets_["BackBearText"]->setFont(FontOf(this, 12, true));
  widgets_["DistText"]->setFont(FontOf(this, 12, true));
  MakeRoomFor(widgets_.As<QLineEdit>("BearText"), "000.0");
  MakeRoomFor(widgets_.As<QLineEdit>("DistText"), "00000.000");
  MakeRoomFor(widgets_.As<QLineEdit>("UncertText"), "00.000deg / 00.00km / ");
  widgets_["Ipt"]->setAccessibleName("Input");

  auto* grid = new QGridLayout(this);
  grid->addWidget(widgets_["Ipt"], 0, 0, 1, 3);
  int row = 1;
  for (const auto& [label, field] : kFields) {
    widgets_.Label(label, field);
    widgets_.As<QLabel>(label)->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(widgets_[label], row, 0);
    grid->addWidget(widgets_[field], row++, 1);
  }
  grid->addWidget(compass_, 1, 2, std::size(kFields), 1);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(row, 1);

  const PictureBox& picture = mirror.w.BearingCalc.C;
  Mirror::Describe(compass_, "C", "");
  compass_->setAccessibleName("Compass");
  Mirror::KeepPlace(compass_);
  mirror.OnShow([this, &picture, shown = PictureBox{}]() mutable {
    compass_->setVisible(picture.visible);
    if (shown == picture) return;
    shown = picture;
    compass_->update();
  });
  setFocusProxy(widgets_["Ipt"]);
  ResizeToDesign();
}

// A place above the screen would come down onto the main window; beside or below it is better,
// where there is room.
QPoint PointingWindowView::PlaceFor(QPoint wanted) const {
  const QPoint reachable = FramedWindow::PlaceFor(wanted);
  const QRect main = main_.frameGeometry();
  if (reachable.y() == wanted.y() || !main.intersects(QRect(reachable, size()))) return reachable;
  const QRect screen = ScreenAt(main.center());
  const QPoint beside(main.right() + 1, reachable.y());
  const QPoint below(main.left(), main.bottom() + 1);
  for (const QPoint& place : {beside, below})
    if (screen.contains(QRect(place, size()))) return place;
  return reachable;
}
