// Paints the drawing operations of a picture box: the compass.
#pragma once

#include <QWidget>

#include "workspace/record/window_state.h"

// Paints the picture as large as the widget allows, with the same scale on both axes.
class PictureView : public QWidget {
 public:
  // `picture` must outlive the view.
  PictureView(const PictureBox& picture, QWidget* parent);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const PictureBox& picture_;
};
