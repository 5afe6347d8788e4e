// What the program's four windows have in common on screen: their place and title follow the
// record, Enter presses the default button, the frame's close button is told to the owner.
#pragma once

#include <QWidget>
#include <functional>

#include "platform/qt/binder.h"

class QPushButton;

// One logical pixel, 1/96 inch.
inline constexpr float kTwipsPerPixel = 15;

// A window of the record; the four derive from it.
class FramedWindow : public QWidget {
 public:
  FramedWindow(Mirror& mirror, Window& state, const char* name);

  // What the frame's close button does.
  std::function<void()> onClose;
  // The button that Enter presses; none at first.
  void SetDefaultButton(QPushButton* button);
  // Brings the window before the others, with the input focus on its focus proxy.
  void ToFront();

 protected:
  // Where the window goes for the place in the record: all of it is on the screen if it can be.
  virtual QPoint PlaceFor(QPoint wanted) const;
  // The screen on which a place lies; the first one for a place on none.
  static QRect ScreenAt(QPoint place);
  // Called when the window appears or the record asks for another size.
  virtual void ShowSize() {}
  // The size of the design, or what the fonts need if that is more.
  void ResizeToDesign();
  void ShowState();

  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

  Mirror& mirror_;
  Window& state_;

 private:
  bool IsUsersDoing() const;
  void AwaitConsequences();
  void Place();

  Window shown_;
  QPushButton* default_ = nullptr;
  int settling_ = 0;  // placings whose consequences are still to come
};
