#include "platform/qt/compass_picture.h"

#include <QPainter>
#include <algorithm>

#include "platform/qt/text.h"
#include "pointing/compass.h"

namespace {

constexpr int kDesignSide = 57;        // pixels, with the font of kDesignLine
constexpr int kDesignLine = 13;        // pixels
constexpr double kLetterSize = 0.155;  // of the side: the letters stay clear of the circle
constexpr double kPenWidth = 1.0 / kDesignSide;

}  // namespace

CompassPicture::CompassPicture(const PictureBox& state, QWidget* parent)
    : QWidget(parent), state_(state) {
  setMinimumSize(sizeHint());
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize CompassPicture::sizeHint() const {
  const int side = std::max(kDesignSide, kDesignSide * fontMetrics().height() / kDesignLine);
  return {side, side};
}

void CompassPicture::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double side = std::min(width(), height());
  const double scale = side / (2.0 * static_cast<double>(kCompassEdge));
  painter.translate((width() - side) / 2, (height() - side) / 2);
  const QRectF whole(0, 0, side, side);
  painter.setClipRect(whole);
  painter.fillRect(whole, state_.back ? ToQt(*state_.back) : palette().color(QPalette::Window));
  painter.translate(side / 2, side / 2);

  QFont letters = font();
  letters.setPixelSize(std::max(1, static_cast<int>(side * kLetterSize)));
  painter.setFont(letters);
  const double ascent = QFontMetricsF(letters, this).ascent();
  QPointF at;
  for (const DrawOperation& op : state_.operations) {
    const QPointF first = QPointF(op.x1, op.y1) * scale;
    painter.setPen(QPen(ToQt(op.colour), side * kPenWidth));
    switch (op.kind) {
      case DrawOperation::Kind::Line:
        painter.drawLine(first, QPointF(op.x2, op.y2) * scale);
        break;
      case DrawOperation::Kind::Circle:
        painter.drawEllipse(first, op.radius * scale, op.radius * scale);
        break;
      case DrawOperation::Kind::PSet:
        painter.drawPoint(first);
        at = first;
        break;
      case DrawOperation::Kind::Print:
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(at + QPointF(0, ascent), ToQt(op.text));
        break;
    }
  }
}
