// What the four windows have in common: position, size and title follow the record, Enter presses
// the default button, and the close button of the frame runs the window's command.
#pragma once

#include <QPushButton>
#include <QWidget>
#include <functional>
#include <type_traits>

#include "platform/qt/binder.h"
#include "platform/qt/change_origin.h"
#include "workspace/record/control_tables.h"

// A twip is 1/1440 inch, a logical pixel 1/96 inch.
inline constexpr float kTwipsPerPixel = 15;

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
  virtual QPoint PlaceFor(QPoint wanted) const;
  // Moves the window to PlaceFor of the position in the record.
  void Place();
  // Whether the position in the record is the user's choice.
  bool IsMovedByUser() const { return isMovedByUser_; }
  // Returns the area without task bars of the screen that contains a point, else of the primary
  // screen.
  static QRect ScreenAt(QPoint point);
  // Resizes the window when it appears and when the size in the record changes.
  virtual void ShowSize() {}
  // Resizes the window to the size in the record, or to what the fonts need if that is more.
  void ResizeToDesign();
  // Sets the button that Enter presses.
  void SetDefaultButton(QPushButton* button);

  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

  CommandRunner& runner_;
  Window& state_;
  const WindowName name_;
  const Binder binder_;

 private:
  void Refresh();
  void ShowTitle();
  void ShowDefaultButton();
  bool IsNormal() const;  // visible, and neither minimised nor maximised
  void TakeReportedPosition();
  void TakeReportedSize();

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
 public:
  // Makes and binds the widget for a control, such as Make(&MainWindow::InputText). The views make
  // their widgets in the order of the table in control_tables.h, so that is the Tab order.
  template <class Control>
  auto* Make(Control Record::*control) {
    auto* widget = binder_.Make(NameOf(control), record_.*control);
    if constexpr (std::is_same_v<Control, Button> && requires { record_.defaultButton; }) {
      runner_.AddRefresher(this, [this, control, widget] {
        if (record_.defaultButton == control) SetDefaultButton(widget);
      });
    }
    return widget;
  }

 protected:
  RecordWindow(CommandRunner& runner, Record& record)
      : FramedWindow(runner, record), record_(record) {}

  Record& record_;
};
