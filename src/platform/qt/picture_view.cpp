#include "platform/qt/picture_view.h"

#include <QPainter>
#include <algorithm>

#include "platform/desktop/qt_text.h"
#include "platform/qt/widgets.h"
#include "pointing/compass.h"

namespace {

constexpr int kDesignSide = 96;  // pixels
// Of the side. Smaller letters would leave the top of the picture with the N, larger ones touch the
// circle.
constexpr double kLetterSize = 0.17;
constexpr double kPenWidth = 0.016;

}  // namespace

CompassPicture::CompassPicture(const PictureBox& state, QWidget* parent)
    : QWidget(parent), state_(state) {
  setMinimumSize(sizeHint());
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize CompassPicture::sizeHint() const {
  const int side = static_cast<int>(kDesignSide * Growth(this));
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
    painter.setPen(QPen(ToQt(op.colour), side * kPenWidth, Qt::SolidLine, Qt::RoundCap));
    switch (op.kind) {
      case DrawOperation::Kind::Line:
        painter.drawLine(first, QPointF(op.x2, op.y2) * scale);
        break;
      case DrawOperation::Kind::Circle:
        painter.drawEllipse(first, op.radius * scale, op.radius * scale);
        break;
      case DrawOperation::Kind::PSet:
        // In the colour of the ground it leaves no mark, not even on the circle that it touches.
        if (op.colour != state_.back) painter.drawPoint(first);
        at = first;
        break;
      case DrawOperation::Kind::Print:
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(at + QPointF(0, ascent), ToQt(op.text));
        break;
    }
  }
}
