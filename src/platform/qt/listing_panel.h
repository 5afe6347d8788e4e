// The lower part of the main window: the limits and the file of a listing.
#pragma once

#include "platform/qt/main_window.h"

class ListingPanel : public QWidget {
 public:
  explicit ListingPanel(MainWindowView& window);

  // Returns the field that the user fills in first.
  QLineEdit* FirstField() const { return MinDisttext_; }

 private:
  MainWindowView& window_;
  CaptionLabel* Label10_ = window_.Make(&MainWindow::Label10);
  CaptionLabel* Label3_ = window_.Make(&MainWindow::Label3);
  QLineEdit* MinDisttext_ = window_.Make(&MainWindow::MinDisttext);
  CaptionLabel* Label7_ = window_.Make(&MainWindow::Label7);
  QLineEdit* MaxDistText_ = window_.Make(&MainWindow::MaxDistText);
  CaptionLabel* Label8_ = window_.Make(&MainWindow::Label8);
  QLineEdit* FromBearText_ = window_.Make(&MainWindow::FromBearText);
  CaptionLabel* Label9_ = window_.Make(&MainWindow::Label9);
  QLineEdit* ToBearText_ = window_.Make(&MainWindow::ToBearText);
  QPushButton* MakeList_ = window_.Make(&MainWindow::MakeList);
  CaptionLabel* Label13_ = window_.Make(&MainWindow::Label13);
  QLineEdit* Srchtext_ = window_.Make(&MainWindow::Srchtext);
  CaptionLabel* Label11_ = window_.Make(&MainWindow::Label11);
  QLineEdit* ListFileName_ = window_.Make(&MainWindow::ListFileName);
  QCheckBox* ShowAll_ = window_.Make(&MainWindow::ShowAll);
};
