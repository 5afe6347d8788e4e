// The GPS set-up window on screen: the port and the speed of a receiver.
#pragma once

#include "platform/qt/framed_window.h"

class SetUpWindowView : public RecordWindow<SetUpWindow> {
 public:
  explicit SetUpWindowView(CommandRunner& runner);

 private:
  void ShowDevices();

  CaptionLabel* Label2_ = Make(&SetUpWindow::Label2);
  QComboBox* CPort_ = Make(&SetUpWindow::CPort);
  CaptionLabel* Label1_ = Make(&SetUpWindow::Label1);
  QComboBox* Baud_ = Make(&SetUpWindow::Baud);
  QPushButton* Command1_ = Make(&SetUpWindow::Command1);
  QPlainTextEdit* Text1_ = Make(&SetUpWindow::Text1);
};
