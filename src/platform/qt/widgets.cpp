#include "platform/qt/widgets.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

#include "platform/qt/text.h"

QSize CaptionLabel::minimumSizeHint() const {
  constexpr int kLongestCaption = 40;  // average characters
  const QSize natural = QLabel::minimumSizeHint();
  return {std::min(natural.width(), kLongestCaption * fontMetrics().averageCharWidth()),
          natural.height()};
}

void CaptionLabel::paintEvent(QPaintEvent* event) {
  const int room = contentsRect().width();
  if (fontMetrics().horizontalAdvance(text()) <= room) {
    return QLabel::paintEvent(event);
  }
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(contentsRect(), Qt::AlignVCenter | Qt::AlignLeft,
                   fontMetrics().elidedText(text(), Qt::ElideRight, room));
}

QLineEdit* MakeWidget(const TextBox& /*state*/, QWidget* parent) {
  return new QLineEdit(parent);
}
QLabel* MakeWidget(const Label& /*state*/, QWidget* parent) {
  return new CaptionLabel(parent);
}
QPushButton* MakeWidget(const Button& /*state*/, QWidget* parent) {
  return new QPushButton(parent);
}
QCheckBox* MakeWidget(const CheckBox& /*state*/, QWidget* parent) {
  return new QCheckBox(parent);
}
QComboBox* MakeWidget(const ComboBox& /*state*/, QWidget* parent) {
  return new QComboBox(parent);
}
QFrame* MakeWidget(const Frame& /*state*/, QWidget* parent) {
  auto* frame = new QFrame(parent);
  frame->setFrameStyle(QFrame::Box | QFrame::Plain);
  return frame;
}

QFont FontOf(const QWidget* widget, double points, bool bold) {
  QFont font = widget->font();
  font.setPointSizeF(std::max(points, font.pointSizeF()));
  font.setBold(bold);
  return font;
}

void MakeRoomFor(QLineEdit* edit, const char* text) {
  const int width = edit->fontMetrics().horizontalAdvance(QString::fromUtf8(text));
  QStyleOptionFrame option;
  option.initFrom(edit);
  option.lineWidth = edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, edit);
  const QSize size = edit->style()->sizeFromContents(
      QStyle::CT_LineEdit, &option, {width + 8, edit->fontMetrics().height()}, edit);
  edit->setMinimumWidth(size.width());
}
