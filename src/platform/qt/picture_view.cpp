#include "platform/qt/picture_view.h"

#include <QPainter>
#include <algorithm>

#include "platform/desktop/qt_text.h"
#include "platform/qt/widget_helpers.h"
#include "pointing/compass.h"

namespace {

// The visible square of the picture's coordinates is [-kEdge, kEdge], with a margin for the
// letters: the N begins above the top of the picture.
constexpr double kEdge = 1.1 * kCompassEdge;

// Fractions of the picture's height. With larger letters the N would touch the circle.
constexpr double kLetterSize = 0.16;
constexpr double kPenWidth = 0.015;

constexpr int kDesignHeight = 105;  // pixels, with the font of the design

}  // namespace

PictureView::PictureView(const PictureBox& picture, QWidget* parent)
    : QWidget(parent), picture_(picture) {
  setMinimumSize(sizeHint());
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize PictureView::sizeHint() const {
  const int height = static_cast<int>(kDesignHeight * FontScale(this));
  return {height, height};
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const double height = std::min(QWidget::width(), QWidget::height());
  const double pixelsPerUnit = height / (2 * kEdge);
  QRectF area(0, 0, height, height);
  area.moveCenter(QRectF(rect()).center());
  painter.setClipRect(area);
  painter.fillRect(area, picture_.back ? ToQt(*picture_.back) : palette().color(QPalette::Window));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(area.center());
  QFont letters = font();
  letters.setPixelSize(std::max(1, static_cast<int>(height * kLetterSize)));
  painter.setFont(letters);
  const double ascent = QFontMetricsF(letters, this).ascent();
  QPointF lastPoint;
  for (const DrawOperation& op : picture_.operations) {
    const QPointF first = QPointF(op.x1, op.y1) * pixelsPerUnit;
    painter.setPen(QPen(ToQt(op.colour), height * kPenWidth, Qt::SolidLine, Qt::RoundCap));
    switch (op.kind) {
      case DrawOperation::Kind::Line:
        painter.drawLine(first, QPointF(op.x2, op.y2) * pixelsPerUnit);
        break;
      case DrawOperation::Kind::Circle:
        painter.drawEllipse(first, op.radius * pixelsPerUnit, op.radius * pixelsPerUnit);
        break;
      case DrawOperation::Kind::PSet:
        // A point in the background colour only sets the position for Print; it erases nothing.
        if (op.colour != picture_.back) painter.drawPoint(first);
        lastPoint = first;
        break;
      case DrawOperation::Kind::Print:
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(lastPoint + QPointF(0, ascent), ToQt(op.text));
        break;
    }
  }
}
