#include "platform/qt/listing_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLineEdit>

#include "platform/qt/layout_helpers.h"

ListingPanel::ListingPanel(MainWindowView& window) : window_(window) {
  Label3_->setBuddy(MinDisttext_);
  Label7_->setBuddy(MaxDistText_);
  Label8_->setBuddy(FromBearText_);
  Label9_->setBuddy(ToBearText_);
  Label13_->setBuddy(Srchtext_);
  Label11_->setBuddy(ListFileName_);

  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  const auto put = [grid](QWidget* widget, int row, int column, int columns = 1) {
    grid->addWidget(widget, row, column, 1, columns);
  };
  put(Label10_, 0, 0, 5);
  put(Label3_, 1, 0);
  put(MinDisttext_, 1, 1);
  put(Label7_, 1, 2);
  put(MaxDistText_, 1, 3);
  put(Label8_, 2, 0);
  put(FromBearText_, 2, 1);
  put(Label9_, 2, 2);
  put(ToBearText_, 2, 3);
  put(MakeList_, 2, 4);
  put(Label13_, 3, 0);
  put(Srchtext_, 3, 1, 3);
  put(Label11_, 4, 0);
  put(ListFileName_, 4, 1, 3);
  put(ShowAll_, 4, 4);
}
