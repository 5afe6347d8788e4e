// Paints the picture box of the Pointing window.
#pragma once

#include <QWidget>

#include "workspace/record/window_state.h"

// The square picture in which both axes run from -1.5 to 1.5; it is as large as its place allows,
// and so are its letters.
class CompassPicture : public QWidget {
 public:
  CompassPicture(const PictureBox& state, QWidget* parent);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const PictureBox& state_;
};
