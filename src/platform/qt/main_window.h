// The main window on screen: the place in all its forms, and below it the limits of a listing.
#pragma once

#include "platform/qt/framed_window.h"

class MainWindowView : public RecordWindow<MainWindow> {
 public:
  explicit MainWindowView(CommandRunner& runner);

  // Writes a place into the input box and presses Use This, as a user would.
  void UsePlace(const QString& place);

 protected:
  QPoint FramePositionFor(QPoint wanted) const override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void StyleFields();
  void LayOutPlace(QGridLayout* grid);
  QWidget* MakeAccuracyBox();
  QWidget* MakeListingPanel();
  void StartListing();
  void SelectInput();
  bool IsSetHomeDefault() const { return record_.defaultButton == &MainWindow::SetHome; }

  QLineEdit* const input_ = WidgetOf(&MainWindow::InputText);
  ScreenScrollArea* scroll_ = nullptr;
};
