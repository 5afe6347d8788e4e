#include "platform/qt/picture_view.h"

#include <QPainter>
#include <algorithm>

#include "platform/desktop/qt_text.h"
#include "platform/qt/layout_helpers.h"

PictureView::PictureView(const PictureBox& picture, const PictureScale& scale, QWidget* parent)
    : QWidget(parent), picture_(picture), scale_(scale) {
  setMinimumSize(sizeHint());
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize PictureView::sizeHint() const {
  const double height = scale_.designHeight * FontScale(this);
  return {static_cast<int>(height * scale_.axes.width() / scale_.axes.height()),
          static_cast<int>(height)};
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRectF axes = scale_.axes;
  const double pixelsPerUnit = std::min(width() / axes.width(), height() / axes.height());
  QRectF area({}, axes.size() * pixelsPerUnit);
  area.moveCenter(QRectF(rect()).center());
  painter.setClipRect(area);
  painter.fillRect(area, picture_.back ? ToQt(*picture_.back) : palette().color(QPalette::Window));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(area.topLeft() - axes.topLeft() * pixelsPerUnit);
  PaintOperations(painter, pixelsPerUnit);
}

void PictureView::PaintOperations(QPainter& painter, double pixelsPerUnit) const {
  const double height = scale_.axes.height() * pixelsPerUnit;
  QFont letters = font();
  letters.setPixelSize(std::max(1, static_cast<int>(height * scale_.letterSize)));
  painter.setFont(letters);
  const double ascent = QFontMetricsF(letters, this).ascent();
  QPointF lastPoint;
  for (const DrawOperation& op : picture_.operations) {
    const QPointF first = QPointF(op.x1, op.y1) * pixelsPerUnit;
    painter.setPen(QPen(ToQt(op.colour), height * scale_.penWidth, Qt::SolidLine, Qt::RoundCap));
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
