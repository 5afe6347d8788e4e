#include "platform/qt/layout_helpers.h"

#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

QSize CaptionLabel::minimumSizeHint() const {
  constexpr int kLongestCaption = 40;  // average characters
  const QSize natural = QLabel::minimumSizeHint();
  return {std::min(natural.width(), kLongestCaption * fontMetrics().averageCharWidth()),
          natural.height()};
}

void CaptionLabel::SetLastWordAt(int x) {
  lastWordAt_ = x;
  update();
}

void CaptionLabel::paintEvent(QPaintEvent* event) {
  const QRect area = contentsRect();
  const bool fits = fontMetrics().horizontalAdvance(text()) <= area.width();
  if (fits && lastWordAt_ == 0) return QLabel::paintEvent(event);

  constexpr int kAlignment = Qt::AlignVCenter | Qt::AlignLeft;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  if (lastWordAt_ != 0) {
    const qsizetype blank = text().lastIndexOf(' ');
    painter.drawText(area, kAlignment, text().left(blank));
    painter.drawText(area.adjusted(lastWordAt_, 0, 0, 0), kAlignment, text().mid(blank + 1));
  } else {
    painter.drawText(area, kAlignment,
                     fontMetrics().elidedText(text(), Qt::ElideRight, area.width()));
  }
}

QFont FontAtLeast(const QWidget* widget, double points, bool bold) {
  QFont font = widget->font();
  font.setPointSizeF(std::max(points, font.pointSizeF()));
  font.setBold(bold);
  return font;
}

double FontScale(const QWidget* widget) {
  constexpr double kDesignLineHeight = 13;  // pixels
  return std::max(1.0, widget->fontMetrics().height() / kDesignLineHeight);
}

void SetMinimumWidthFor(QLineEdit* edit, const char* text) {
  const int width = edit->fontMetrics().horizontalAdvance(QString::fromUtf8(text));
  QStyleOptionFrame option;
  option.initFrom(edit);
  option.lineWidth = edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, edit);
  const QSize size = edit->style()->sizeFromContents(
      QStyle::CT_LineEdit, &option, {width + 8, edit->fontMetrics().height()}, edit);
  edit->setMinimumWidth(size.width());
}
