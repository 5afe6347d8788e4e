// Paints the drawing operations of a picture box.
#pragma once

#include <QWidget>

#include "workspace/record/window_state.h"

// How the coordinates of a picture become pixels.
struct PictureScale {
  QRectF axes;        // the visible coordinates, x to the right and y down
  double letterSize;  // height of a letter, as a part of the picture's height
  double penWidth;    // of lines and points, likewise
  int designHeight;   // pixels, with the font of the design
};

// Paints the picture as large as the widget allows, with the same scale on both axes.
class PictureView : public QWidget {
 public:
  // `picture` must outlive the view.
  PictureView(const PictureBox& picture, const PictureScale& scale, QWidget* parent);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintOperations(QPainter& painter, double pixelsPerUnit) const;

  const PictureBox& picture_;
  const PictureScale scale_;
};
