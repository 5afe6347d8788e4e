// Keeps the windows on screen and the record's view fields alike. A user's edit goes into the
// record as it happens; a command runs on the record, and when the outermost one has ended the
// widgets show what has changed.
#pragma once

#include <QPalette>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "workspace/events/event_table.h"

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QWidget;

// The palette that the fields' colours were chosen for; every window has it, on a dark desktop too.
QPalette LightPalette();

// One for the whole program; the record and the widgets bound to it must outlive it.
class Mirror {
 public:
  explicit Mirror(Workspace& record) : w(record) {}

  Workspace& w;

  // Runs a command and shows what it changed. While one runs, as under a message box, no other
  // starts: false.
  bool Run(const std::function<void(Workspace&)>& command);
  bool Run(const Event& event);
  bool IsBusy() const { return busy_; }
  // Called after each command.
  std::function<void()> onIdle;

  // Brings the windows to the state of the record.
  void Show();
  // Has `update` called by every Show.
  void OnShow(std::function<void()> update) { updates_.push_back(std::move(update)); }

  // Ties a control of the record to its widget, which gets its name, tool tip and description; of a
  // form that was calculated the description says so.
  // Edits by the user, a screen reader or an input method go into the record; clicks run the
  // control's command.
  void Bind(WindowName window, const char* name, TextBox& state, QLineEdit* edit);
  void Bind(WindowName window, const char* name, TextArea& state, QPlainTextEdit* edit);
  void Bind(WindowName window, const char* name, Label& state, QLabel* label);
  void Bind(WindowName window, const char* name, Button& state, QPushButton* button);
  void Bind(WindowName window, const char* name, CheckBox& state, QCheckBox* box);
  void Bind(WindowName window, const char* name, ComboBox& state, QComboBox* box);
  void Bind(WindowName window, const char* name, Frame& state, QFrame* frame);

  // A hidden control keeps its place in the layout.
  static void KeepPlace(QWidget* widget);
  // A widget's name, tool tip and what assistive tools read of them.
  static void Describe(QWidget* widget, const char* name, const char* tip);

 private:
  // Has `update` called now and after every change of the state. What the widget shows by itself,
  // the user's edit, goes into the state that is given back.
  template <class State, class Update>
  std::shared_ptr<State> OnChange(const State& state, Update update);

  std::vector<std::function<void()>> updates_;
  bool busy_ = false;
  bool showing_ = false;  // the widgets' own signals are the mirror's doing
};
