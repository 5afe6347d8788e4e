// The main window on screen: the place in all its forms, and below it the limits of a listing.
#pragma once

#include "platform/qt/framed_window.h"

class ListingPanel;
class QGridLayout;
class QVBoxLayout;
class ScreenScrollArea;

class MainWindowView : public RecordWindow<MainWindow> {
 public:
  explicit MainWindowView(CommandRunner& runner);

  // Writes a place into the input box and presses Use This, as a user would.
  void UsePlace(const QString& place);

 protected:
  QPoint PlaceFor(QPoint wanted) const override;
  void ShowSize() override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void StyleFields();
  void NameFields();
  void LayOutPlace(QGridLayout* grid);
  QWidget* MakeAccuracyBox();
  void ShowListing();
  void StartListing();
  void SelectInput();
  bool IsHomeNext() const { return record_.defaultButton == &MainWindow::SetHome; }

  CaptionLabel* Label14_ = Make(&MainWindow::Label14);
  CaptionLabel* Label2_ = Make(&MainWindow::Label2);
  CaptionLabel* Label1_ = Make(&MainWindow::Label1);
  QLineEdit* LocDatabase_ = Make(&MainWindow::LocDatabase);
  QLineEdit* InputText_ = Make(&MainWindow::InputText);
  CaptionLabel* Label5_ = Make(&MainWindow::Label5);
  CaptionLabel* Xdim_ = Make(&MainWindow::Xdim);
  CaptionLabel* Ydim_ = Make(&MainWindow::Ydim);
  QFrame* Frame1_ = Make(&MainWindow::Frame1);
  QPushButton* FindIt_ = Make(&MainWindow::FindIt);
  QPushButton* Lookup_ = Make(&MainWindow::Lookup);
  CaptionLabel* Label15_ = Make(&MainWindow::Label15);
  QLineEdit* LocText_ = Make(&MainWindow::LocText);
  QLineEdit* NGRText_ = Make(&MainWindow::NGRText);
  QLineEdit* EastNorth_ = Make(&MainWindow::EastNorth);
  QPushButton* SetHome_ = Make(&MainWindow::SetHome);
  QPushButton* GenList_ = Make(&MainWindow::GenList);
  QPushButton* Gmap_ = Make(&MainWindow::Gmap);
  QPushButton* OSMap_ = Make(&MainWindow::OSMap);
  QPushButton* UseNMEA_ = Make(&MainWindow::UseNMEA);
  QPushButton* LocSites_ = Make(&MainWindow::LocSites);
  QLineEdit* LLText_ = Make(&MainWindow::LLText);
  QPushButton* LLfmt_ = Make(&MainWindow::LLfmt);
  CaptionLabel* Label4_ = Make(&MainWindow::Label4);
  CaptionLabel* BaseLocLbl_ = Make(&MainWindow::BaseLocLbl);
  QCheckBox* SaveOnExit_ = Make(&MainWindow::SaveOnExit);

  QVBoxLayout* column_;
  ScreenScrollArea* scroll_;
  ListingPanel* listing_ = nullptr;  // made when it is first shown
};
