// Binds widgets to controls of the record: a refresh shows the control in its widget, an edit by
// the user, a screen reader or an input method changes the control, and a user action runs the
// command that the event table lists for it.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "platform/qt/command_runner.h"
#include "platform/qt/picture_view.h"
#include "platform/qt/results_list.h"
#include "platform/qt/widget_helpers.h"

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
  // after those made before. A hidden widget keeps its place in the layout.
  QLineEdit* Make(const char* name, TextBox& control) const;
  QPlainTextEdit* Make(const char* name, TextArea& control) const;
  CaptionLabel* Make(const char* name, Label& control) const;
  QPushButton* Make(const char* name, Button& control) const;
  QCheckBox* Make(const char* name, CheckBox& control) const;
  QComboBox* Make(const char* name, ComboBox& control) const;
  ResultsList* Make(const char* name, ListBox& control) const;
  QFrame* Make(const char* name, Frame& control) const;
  PictureView* Make(const char* name, PictureBox& control) const;

 private:
  // Names and describes a widget and shows the control in it, now and on every refresh: calls
  // `show` for what only this kind of control has.
  template <class Control>
  void Bind(QWidget* widget, const char* name, Control& control, std::function<void()> show) const;
  // Returns a function that runs the command for a user action; empty if there is none.
  std::function<void()> CommandOf(const char* name, UserAction action) const;

  CommandRunner& runner_;
  WindowName windowName_;
  QWidget* window_;
};
