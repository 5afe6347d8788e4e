// Sizes and fonts that the layouts of several windows need.
#pragma once

#include <QFont>
#include <QLabel>

class QLineEdit;

// A label that doesn't stretch its window: a caption too long for its place ends in dots. Its last
// word may have a place of its own.
class CaptionLabel : public QLabel {
 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override;
  // Draws the last word `x` pixels from the left edge, instead of after as many blanks as precede
  // it.
  void SetLastWordAt(int x);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int lastWordAt_ = 0;
};

// Returns the widget's font in another size and weight, never smaller than it is.
QFont FontAtLeast(const QWidget* widget, double points, bool bold);

// Returns how much larger than in the design the widget's font is, at least 1. What is drawn is
// scaled by it.
double FontScale(const QWidget* widget);

// Makes a field wide enough for a text in its own font.
void SetMinimumWidthFor(QLineEdit* edit, const char* text);
