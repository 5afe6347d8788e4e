// Sizes and fonts that the layouts of several windows need.
#pragma once

#include <QFont>
#include <QLabel>
#include <QScrollArea>

class QLineEdit;

// A label that doesn't stretch its window: a caption too long for its place ends in dots, or makes
// the label higher if it wraps. Its last word may have a place of its own.
class CaptionLabel : public QLabel {
 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override;
  void SetWrapping() { wraps_ = true; }
  // Draws the last word `x` pixels from the left edge, instead of after as many blanks as precede
  // it.
  void SetLastWordAt(int x);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool wraps_ = false;
  int lastWordAt_ = 0;
};

// Scrolls its content if the screen is too small for it.
class ScreenScrollArea : public QScrollArea {
 public:
  // Takes ownership of `content`.
  ScreenScrollArea(QWidget* content, QWidget* parent);
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override { return minimumSizeHint(); }

 protected:
  bool viewportEvent(QEvent* event) override;
};

// Returns the widget's font in another size and weight: `points` where the font has 9, and never
// smaller than it is.
QFont FontAtLeast(const QWidget* widget, double points, bool bold);

// Returns how much larger than in the design the widget's font is, at least 1. What is drawn is
// scaled by it.
double FontScale(const QWidget* widget);

// Frames a list or a text so that the frame is whole on a screen of fractional scale, where the
// style's frame is cut.
void SetPlainFrame(QFrame* frame);

// Makes a field wide enough for a text in its own font.
void SetMinimumWidthFor(QLineEdit* edit, const char* text);
