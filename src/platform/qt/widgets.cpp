#include "platform/qt/widgets.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

#include "platform/desktop/qt_text.h"

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
  const QRect room = contentsRect();
  const bool fits = fontMetrics().horizontalAdvance(text()) <= room.width();
  if (fits && lastWordAt_ == 0) return QLabel::paintEvent(event);

  constexpr int kAlignment = Qt::AlignVCenter | Qt::AlignLeft;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  if (lastWordAt_ != 0) {
    const qsizetype blank = text().lastIndexOf(' ');
    painter.drawText(room, kAlignment, text().left(blank));
    painter.drawText(room.adjusted(lastWordAt_, 0, 0, 0), kAlignment, text().mid(blank + 1));
  } else {
    painter.drawText(room, kAlignment,
                     fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
  }
}

QLineEdit* MakeWidget(const TextBox& /*state*/, QWidget* parent) {
  return new QLineEdit(parent);
}
QPlainTextEdit* MakeWidget(const TextArea& /*state*/, QWidget* parent) {
  return new QPlainTextEdit(parent);
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

double Growth(const QWidget* widget) {
  constexpr double kDesignLine = 13;  // pixels
  return std::max(1.0, widget->fontMetrics().height() / kDesignLine);
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
