// The GPS set-up window on screen.
#pragma once

#include "platform/qt/framed_window.h"
#include "platform/qt/widgets.h"

// Which port and speed a receiver has.
class SetUpWindowView : public FramedWindow {
 public:
  explicit SetUpWindowView(Mirror& mirror);

 private:
  Widgets widgets_;
};
