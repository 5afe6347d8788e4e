// Binds widgets to controls of the record: a refresh shows the control in its widget, an edit by
// the user, a screen reader or an input method changes the control, and a user action runs the
// command that the event table lists for it.
#pragma once

#include <QPalette>

#include "platform/qt/command_runner.h"

class CaptionLabel;
class QCheckBox;
class QComboBox;
class QFrame;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QWidget;

// Returns the palette for which the colours of the controls were chosen. All windows use it, even
// on a dark desktop.
QPalette LightPalette();

// Makes the widgets of one window.
class Binder {
 public:
  // `window` is the parent of the widgets, and `windowName` its name in the event table.
  Binder(CommandRunner& runner, WindowName windowName, QWidget* window)
      : runner_(runner), windowName_(windowName), window_(window) {}

  // Makes the widget for a control; the control must outlive it. `name` is the control's name in
  // the event table; it becomes the object name of the widget. In the Tab order the widget comes
  // after those made before.
  QLineEdit* Make(const char* name, TextBox& control) const;
  QPlainTextEdit* Make(const char* name, TextArea& control) const;
  CaptionLabel* Make(const char* name, Label& control) const;
  QPushButton* Make(const char* name, Button& control) const;
  QCheckBox* Make(const char* name, CheckBox& control) const;
  QComboBox* Make(const char* name, ComboBox& control) const;
  QFrame* Make(const char* name, Frame& control) const;

  // Names and describes a widget, keeps its place in the layout while it is hidden, and calls
  // `refresh` now and on every refresh.
  void Bind(QWidget* widget, const char* name, const char* tip,
            const std::function<void()>& refresh) const;
  // Returns the event for an action on a control, or null.
  const Event* EventOf(const char* name, UserAction action) const;

 private:
  CommandRunner& runner_;
  WindowName windowName_;
  QWidget* window_;
};
