// The Results window on screen.
#pragma once

#include "platform/qt/framed_window.h"
#include "platform/qt/widgets.h"

class ResultsWindowView : public FramedWindow {
 public:
  explicit ResultsWindowView(Mirror& mirror);

 private:
  Widgets widgets_;
};
