// The main window on screen.
#pragma once

#include "platform/qt/framed_window.h"
#include "platform/qt/widgets.h"

class QGridLayout;

// The place in all its forms, and below it the limits of a listing.
class MainWindowView : public FramedWindow {
 public:
  explicit MainWindowView(Mirror& mirror);

 protected:
  QPoint PlaceFor(QPoint wanted) const override;
  void ShowSize() override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void LetKeysBeginAnew();
  void ShowListing();
  void LayOutPlace(QGridLayout* grid);
  QWidget* AccuracyBox();
  QWidget* ListingPanel();

  Widgets widgets_;
  QWidget* listing_ = nullptr;  // what lies below the height of the lookup layout
};
