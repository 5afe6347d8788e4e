#include "platform/qt/widget_helpers.h"

#include <QEvent>
#include <QGridLayout>
#include <QLineEdit>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

QSize CaptionLabel::minimumSizeHint() const {
  constexpr int kLongestCaption = 40;  // average characters
  const QSize natural = QLabel::minimumSizeHint();
  const QRect place(0, 0, width(), QWIDGETSIZE_MAX);
  return {std::min(natural.width(), kLongestCaption * fontMetrics().averageCharWidth()),
          wraps_ ? fontMetrics().boundingRect(place, Qt::TextWordWrap, text()).height()
                 : natural.height()};
}

void CaptionLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  if (wraps_) updateGeometry();
}

void CaptionLabel::paintEvent(QPaintEvent* event) {
  const QRect area = contentsRect();
  const bool fits = sizeHint().width() <= area.width();
  if (fits && lastWordAbove_ == nullptr) return QLabel::paintEvent(event);

  constexpr int kAlignment = Qt::AlignVCenter | Qt::AlignLeft;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  if (wraps_) {
    painter.drawText(area, Qt::AlignCenter | Qt::TextWordWrap, text());
  } else if (lastWordAbove_ != nullptr) {
    const qsizetype blank = text().lastIndexOf(' ');
    painter.drawText(area, kAlignment, text().left(blank));
    painter.drawText(area.adjusted(lastWordAbove_->x() - x(), 0, 0, 0), kAlignment,
                     text().mid(blank + 1));
  } else {
    painter.drawText(area, kAlignment,
                     fontMetrics().elidedText(text(), Qt::ElideRight, area.width()));
  }
}

ScreenScrollArea::ScreenScrollArea(QWidget* content, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  setWidget(content);
}

QSize ScreenScrollArea::minimumSizeHint() const {
  constexpr QSize kWindowFrame(8, 40);
  const QSize free = screen()->availableGeometry().size() - kWindowFrame;
  QSize size = widget()->minimumSizeHint();
  // A vertical scroll bar takes some of the width, a horizontal one some of the height.
  if (size.height() > free.height()) size.rwidth() += verticalScrollBar()->sizeHint().width();
  if (size.width() > free.width()) size.rheight() += horizontalScrollBar()->sizeHint().height();
  return size.boundedTo(free);
}

bool ScreenScrollArea::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) updateGeometry();
  return QScrollArea::viewportEvent(event);
}

QFont FontAtLeast(const QWidget* widget, double points, bool bold) {
  constexpr double kDesignPoints = 9;
  QFont font = widget->font();
  const double base = QFontInfo(font).pointSizeF();
  font.setPointSizeF(std::max(points * base / kDesignPoints, base));
  font.setBold(bold);
  return font;
}

double FontScale(const QWidget* widget) {
  constexpr double kDesignLineHeight = 13;  // pixels
  return std::max(1.0, widget->fontMetrics().height() / kDesignLineHeight);
}

void SetPlainFrame(QFrame* frame) {
  frame->setFrameStyle(QFrame::Box | QFrame::Plain);
  QPalette palette = frame->palette();
  palette.setColor(QPalette::WindowText, QColor(170, 170, 170));
  frame->setPalette(palette);
}

void SetMinimumWidthFor(QLineEdit* edit, const char* text) {
  constexpr int kMargins = 8;  // pixels
  const int frame = edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, edit);
  const int width = edit->fontMetrics().horizontalAdvance(QString::fromUtf8(text));
  edit->setMinimumWidth(width + kMargins + 2 * frame);
}

void Describe(QWidget* widget, const QString& text, bool isCalculated) {
  QStringList parts;
  if (isCalculated) parts << "Calculated.";
  if (!text.isEmpty()) parts << text;
  if (qEnvironmentVariableIsSet("TARNWICK_FIELD_NAMES")) parts << '[' + widget->objectName() + ']';
  const QString description = parts.join(' ');
  // Qt announces every call of the setter as a change.
  if (widget->accessibleDescription() != description) widget->setAccessibleDescription(description);
}

void AddLabelled(QGridLayout* grid, QLabel* label, QLineEdit* field, int row, int column,
                 int fieldColumns) {
  label->setBuddy(field);
  grid->addWidget(label, row, column);
  grid->addWidget(field, row, column + 1, 1, fieldColumns);
}
