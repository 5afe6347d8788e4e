// What the four windows have in common: position, size and title follow the record, Enter presses
// the default button, and the close button of the frame runs the window's command.
#pragma once

#include <memory>

#include "platform/qt/binder.h"
#include "workspace/record/control_names.h"

// A twip is 1/1440 inch, a logical pixel 1/96 inch.
inline constexpr float kTwipsPerPixel = 15;

// Decides whether the user or the program changed a window's position or size. The window system
// reports each change. Its first report after a request of the program is the answer, with the
// requested value or with one that the window manager chose. Any later report of another value is
// a change by the user.
template <class Value>
class ChangeOrigin {
 public:
  // The program asked for a value, or the window manager is about to choose one.
  void Request(const Value& value) {
    requested_ = value;
    answerIsDue_ = true;
  }
  // No answer is due any more.
  void EndRequest() { answerIsDue_ = false; }
  // Records a reported value and returns whether the user chose it.
  bool IsUserChange(const Value& value) {
    const bool isUsers = !answerIsDue_ && value != requested_ && value != answered_;
    answerIsDue_ = false;
    answered_ = value;
    if (isUsers) requested_ = value;
    return isUsers;
  }

 private:
  Value requested_{};
  Value answered_{};
  bool answerIsDue_ = false;
};

// The base class of the four windows.
class FramedWindow : public QWidget {
 public:
  ~FramedWindow() override;

  // Called after the command for closing the frame.
  std::function<void()> onClosed;
  // Brings the window in front of the others, with the input focus on its focus proxy.
  void BringToFront();

 protected:
  FramedWindow(CommandRunner& runner, Window& state);

  // Returns where to put the frame for a position in the record, both in pixels. By default the
  // whole window is on the screen if it fits.
  virtual QPoint FramePositionFor(QPoint wanted) const;
  // Moves the window to FramePositionFor of the position in the record.
  void ShowPosition();
  // Whether the position in the record is the user's choice.
  bool IsMovedByUser() const { return isMovedByUser_; }
  // Returns the area without task bars of the screen that contains a point, else of the primary
  // screen.
  static QRect ScreenAt(QPoint point);
  // Resizes the window to the size in the record, or to what the fonts need if that is more. Called
  // when the size in the record changes.
  virtual void ShowSize();
  // Sets the button that Enter presses.
  void SetDefaultButton(QPushButton* button);

  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

  CommandRunner& runner_;
  Window& state_;
  WindowName name_{};

 private:
  void Refresh();
  void ShowTitle();
  void ShowDefaultButton();
  bool IsNormal() const;  // visible, and neither minimised nor maximised
  void RecordUserMove();
  void RecordUserResize();

  Window shown_;
  QPushButton* default_ = nullptr;
  bool isMovedByUser_ = false;
  bool isAppearing_ = false;  // the frame is not on the screen yet
  ChangeOrigin<QPoint> position_;
  ChangeOrigin<QSize> size_;
};

// A window of the record together with its controls.
template <class Record>
class RecordWindow : public FramedWindow {
 protected:
  // Makes the widgets of all controls, so the order of the table in control_names.h is the Tab
  // order.
  RecordWindow(CommandRunner& runner, Record& record)
      : FramedWindow(runner, record), record_(record) {
    const Binder binder(runner, name_, this);
    EachControl(record, [&](const char* name, auto& control) { binder.Make(name, control); });
    if constexpr (requires { record.defaultButton; })
      runner.AddRefresher([this] { SetDefaultButton(WidgetOf(record_.defaultButton)); });
  }

  // Returns the widget of a control, such as the QLineEdit of WidgetOf(&MainWindow::InputText).
  template <class Control>
  auto* WidgetOf(Control Record::*control) const {
    using Widget = decltype(std::declval<Binder>().Make("", record_.*control));
    return dynamic_cast<Widget>(findChild<QWidget*>(NameOf(control)));
  }

  Record& record_;
};
