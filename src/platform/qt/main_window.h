// The main window on screen: the place in all its forms, and below it the limits of a listing.
#pragma once

#include "platform/qt/framed_window.h"

class QGridLayout;

class MainWindowView : public RecordWindow<MainWindow> {
 public:
  explicit MainWindowView(CommandRunner& runner);

  // Does what a user does who types a place and presses Use This.
  void UsePlace(const QString& place);

 protected:
  QPoint PlaceFor(QPoint wanted) const override;
  void ShowSize() override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void StyleFields();
  void NameFields();
  void LayOutPlace(QGridLayout* grid);
  QWidget* MakeAccuracyBox();
  QWidget* MakeListingPanel();
  void ShowListing();

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
  CaptionLabel* Label10_ = Make(&MainWindow::Label10);
  CaptionLabel* Label3_ = Make(&MainWindow::Label3);
  QLineEdit* MinDisttext_ = Make(&MainWindow::MinDisttext);
  CaptionLabel* Label7_ = Make(&MainWindow::Label7);
  QLineEdit* MaxDistText_ = Make(&MainWindow::MaxDistText);
  CaptionLabel* Label8_ = Make(&MainWindow::Label8);
  QLineEdit* FromBearText_ = Make(&MainWindow::FromBearText);
  CaptionLabel* Label9_ = Make(&MainWindow::Label9);
  QLineEdit* ToBearText_ = Make(&MainWindow::ToBearText);
  QPushButton* MakeList_ = Make(&MainWindow::MakeList);
  CaptionLabel* Label13_ = Make(&MainWindow::Label13);
  QLineEdit* Srchtext_ = Make(&MainWindow::Srchtext);
  CaptionLabel* Label11_ = Make(&MainWindow::Label11);
  QLineEdit* ListFileName_ = Make(&MainWindow::ListFileName);
  QCheckBox* ShowAll_ = Make(&MainWindow::ShowAll);

  QWidget* listing_ = nullptr;  // the rows below the height of the lookup layout
};
