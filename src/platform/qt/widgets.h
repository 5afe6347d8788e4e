// Makes the widgets of a window from its record.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <map>
#include <string_view>

#include "platform/qt/binder.h"
#include "workspace/record/control_tables.h"

// A label that doesn't stretch its window: a caption too long for its place ends in dots. Its last
// word may have a place of its own.
class CaptionLabel : public QLabel {
 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override;
  // Pixels from the left, instead of blanks that are as wide as the font has them.
  void SetLastWordAt(int x);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int lastWordAt_ = 0;
};

// The widget for a control of the record, made but not yet tied to it.
QLineEdit* MakeWidget(const TextBox& state, QWidget* parent);
QPlainTextEdit* MakeWidget(const TextArea& state, QWidget* parent);
QLabel* MakeWidget(const Label& state, QWidget* parent);
QPushButton* MakeWidget(const Button& state, QWidget* parent);
QCheckBox* MakeWidget(const CheckBox& state, QWidget* parent);
QComboBox* MakeWidget(const ComboBox& state, QWidget* parent);
QFrame* MakeWidget(const Frame& state, QWidget* parent);

// The widgets of a window by the names of their controls.
class Widgets {
 public:
  // Makes and binds a widget for every control but lists and pictures; the tab order is that of the
  // record.
  template <class Record>
  Widgets(Mirror& mirror, WindowName window, Record& record, QWidget* parent) {
    QWidget* before = nullptr;
    EachControl(record, [&](const char* name, auto& state) {
      if constexpr (requires { MakeWidget(state, parent); }) {
        QWidget* widget = Make(mirror, window, name, state, parent);
        byName_[name] = widget;
        byState_[&state] = widget;
        if (before != nullptr) QWidget::setTabOrder(before, widget);
        before = widget;
      }
    });
  }

  QWidget* operator[](std::string_view name) const { return byName_.at(name); }
  template <class Kind>
  Kind* As(std::string_view name) const {
    return static_cast<Kind*>(byName_.at(name));
  }
  QPushButton* ButtonOf(const Button& state) const {
    return static_cast<QPushButton*>(byState_.at(&state));
  }
  // The label's text names the field for assistive tools.
  void Label(std::string_view label, std::string_view field) const {
    As<QLabel>(label)->setBuddy(byName_.at(field));
  }

 private:
  template <class State>
  static QWidget* Make(Mirror& mirror, WindowName window, const char* name, State& state,
                       QWidget* parent) {
    return Bound(mirror, window, name, state, MakeWidget(state, parent));
  }
  static QWidget* Bound(Mirror& mirror, WindowName window, const char* name, auto& state,
                        auto* widget) {
    mirror.Bind(window, name, state, widget);
    return widget;
  }

  std::map<std::string_view, QWidget*> byName_;
  std::map<const void*, QWidget*> byState_;
};

// The desktop's font in another size and weight, never smaller than the desktop's own.
QFont FontOf(const QWidget* widget, double points, bool bold);

// How much larger than in the design the widget's font is, never less than 1: what is drawn grows
// with it.
double Growth(const QWidget* widget);

// Makes a field wide enough for a text in its own font.
void MakeRoomFor(QLineEdit* edit, const char* text);
