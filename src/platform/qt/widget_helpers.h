// Widgets, sizes, fonts and descriptions that several windows share.
#pragma once

#include <QFont>
#include <QLabel>
#include <QScrollArea>

class QGridLayout;
class QLineEdit;

// A label that does not widen its window: a caption that is too long ends in dots, or makes the
// label higher if wrapping is on. The last word can be drawn above another widget.
class CaptionLabel : public QLabel {
 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override;
  void SetWrapping() { wraps_ = true; }
  // Draws the last word at the left edge of `field`, instead of after as many blanks as precede it.
  void SetLastWordAbove(const QWidget* field) { lastWordAbove_ = field; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool wraps_ = false;
  const QWidget* lastWordAbove_ = nullptr;
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

// Returns the widget's font in another size and weight. The size is `points` if the widget's font
// has 9 points, in proportion for other fonts, and never smaller than the widget's font.
QFont FontAtLeast(const QWidget* widget, double points, bool bold);

// Returns the height of the widget's font relative to the font of the design, at least 1. Drawings
// are scaled by it.
double FontScale(const QWidget* widget);

// Draws a plain frame around a list or a text. On a screen with a fractional scale the style's own
// frame would be clipped.
void SetPlainFrame(QFrame* frame);

// Makes a field wide enough for a text in its own font.
void SetMinimumWidthFor(QLineEdit* edit, const char* text);

// Sets the accessible description, which a screen reader reads after the widget's name: `text`,
// preceded by "Calculated." if the program calculated what the widget shows. If the environment
// variable TARNWICK_FIELD_NAMES is set, for scripts that look for controls, the widget's object
// name in brackets follows. A label, a button and a check box take their accessible names from
// their captions, a field from its label or from an accessible name of its own.
void Describe(QWidget* widget, const QString& text, bool isCalculated = false);

// Puts a label and the field that it names beside each other, the label in column `column`.
void AddLabelled(QGridLayout* grid, QLabel* label, QLineEdit* field, int row, int column,
                 int fieldColumns = 1);
