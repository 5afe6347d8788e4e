// The Pointing window on screen: the compass and the figures from the home station.
#pragma once

#include "platform/qt/framed_window.h"
#include "platform/qt/picture_view.h"

class PointingWindowView : public RecordWindow<PointingWindow> {
 public:
  PointingWindowView(CommandRunner& runner, QWidget& mainWindow);

 protected:
  QPoint PlaceFor(QPoint wanted) const override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void ShowCompass();

  QWidget& mainWindow_;
  QLineEdit* Ipt_ = Make(&PointingWindow::Ipt);
  CaptionLabel* Label5_ = Make(&PointingWindow::Label5);
  QLineEdit* BearText_ = Make(&PointingWindow::BearText);
  CaptionLabel* Label6_ = Make(&PointingWindow::Label6);
  QLineEdit* BackBearText_ = Make(&PointingWindow::BackBearText);
  CaptionLabel* Label4_ = Make(&PointingWindow::Label4);
  QLineEdit* DistText_ = Make(&PointingWindow::DistText);
  CaptionLabel* Label12_ = Make(&PointingWindow::Label12);
  QLineEdit* UncertText_ = Make(&PointingWindow::UncertText);
  PictureView* C_;
};
