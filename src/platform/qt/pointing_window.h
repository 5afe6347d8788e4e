// The Pointing window on screen.
#pragma once

#include "platform/qt/framed_window.h"
#include "platform/qt/picture_view.h"
#include "platform/qt/widgets.h"

// The figures from the home station and the compass.
class PointingWindowView : public FramedWindow {
 public:
  PointingWindowView(Mirror& mirror, const QWidget& mainWindow);

 protected:
  QPoint PlaceFor(QPoint wanted) const override;

 private:
  const QWidget& main_;
  Widgets widgets_;
  CompassPicture* compass_;
};
