// Paints a picture box: the list of its drawing operations.
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

// The picture is as large as its place allows with both axes at one scale.
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
