#include "platform/qt/main_window.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QEvent>
#include <QLineEdit>
#include <algorithm>

#include "platform/desktop/qt_text.h"
#include "platform/qt/accessibility.h"
#include "platform/qt/layout_helpers.h"

namespace {

// The columns of the upper part: two of buttons, two of references, one of the accuracy box.
enum Column { kFirstButton, kSecondButton, kGap, kLocator, kReference, kLast, kColumns };

constexpr QSize kAccuracySquare(45, 43);
constexpr double kLargePoints = 12;

// Pixels of the window that stay on the screen, so that the user can drag its title bar.
constexpr int kReachable = 80;

}  // namespace

MainWindowView::MainWindowView(CommandRunner& runner) : RecordWindow(runner, runner.w.Tarnwick) {
  StyleFields();
  NameFields();

  auto* column = new QVBoxLayout(this);
  auto* grid = new QGridLayout;
  LayOutPlace(grid);
  column->addLayout(grid);
  listing_ = MakeListingPanel();
  column->addWidget(listing_);
  listing_->hide();
  column->addStretch();

  // The record contains the width that the fonts need.
  state_.width = std::max(state_.width, static_cast<float>(sizeHint().width()) * kTwipsPerPixel);
  NGRText_->installEventFilter(this);
  setFocusProxy(InputText_);
  setFocus();
  // The user can type the next place at once: it replaces the one that was used.
  for (const QPushButton* button : {FindIt_, SetHome_})
    connect(button, &QPushButton::clicked, InputText_, &QLineEdit::selectAll);
  runner.AddRefresher(this, [this] { ShowListing(); });
}

void MainWindowView::UsePlace(const QString& place) {
  InputText_->setText(place);
  FindIt_->click();
}

void MainWindowView::StyleFields() {
  Label14_->setFont(FontAtLeast(this, 0, true));
  for (QLineEdit* field : {LocText_, NGRText_})
    field->setFont(FontAtLeast(this, kLargePoints, true));
  BaseLocLbl_->setFont(FontAtLeast(this, kLargePoints, true));
  LLText_->setFont(FontAtLeast(this, kLargePoints, false));
  for (QLineEdit* field : {LocText_, NGRText_, LLText_, EastNorth_})
    field->setAlignment(Qt::AlignCenter);
  for (CaptionLabel* label : {Xdim_, BaseLocLbl_, Label4_, Label5_})
    label->setAlignment(Qt::AlignCenter);
  Ydim_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  SetMinimumWidthFor(LocText_, "WW00WW00WW");
  SetMinimumWidthFor(NGRText_, "WW00000 00000");
  SetMinimumWidthFor(EastNorth_, "E: 000000 , N: 0000000");
  SetMinimumWidthFor(LLText_, "000° 00' 00.0'' W, 000° 00' 00.0'' W");
  SetMinimumWidthFor(LocDatabase_, "c:\\geog\\Sites.dat 0000");

  // The captions of this button change, but the columns must not.
  for (const char* caption : {kRealTimeCaption, kPauseCaption, kResumeCaption}) {
    UseNMEA_->setText(caption);
    UseNMEA_->setMinimumWidth(std::max(UseNMEA_->minimumWidth(), UseNMEA_->sizeHint().width()));
  }
  UseNMEA_->setText(ToQt(record_.UseNMEA.caption));
}

void MainWindowView::NameFields() {
  Label2_->setBuddy(InputText_);
  Label1_->setBuddy(LocDatabase_);
  LocText_->setAccessibleName("Locator");
  NGRText_->setAccessibleName("National Grid Reference");
  EastNorth_->setAccessibleName("Eastings and northings");
  LLText_->setAccessibleName("Latitude and longitude");
  // Their captions are bare lengths.
  Describe(Xdim_, "Resolution, width");
  Describe(Ydim_, "Resolution, height");
  Label3_->setBuddy(MinDisttext_);
  Label7_->setBuddy(MaxDistText_);
  Label8_->setBuddy(FromBearText_);
  Label9_->setBuddy(ToBearText_);
  Label13_->setBuddy(Srchtext_);
  Label11_->setBuddy(ListFileName_);
}

void MainWindowView::LayOutPlace(QGridLayout* grid) {
  const auto put = [grid](QWidget* widget, int row, int column, int columns = 1) {
    grid->addWidget(widget, row, column, 1, columns);
  };
  int row = 0;
  put(Label14_, row++, 0, kColumns);

  auto* database = new QHBoxLayout;
  database->addStretch();
  database->addWidget(Label1_);
  database->addWidget(LocDatabase_, 1);
  put(Label2_, row, kFirstButton, 2);
  grid->addLayout(database, row++, kGap, 1, kColumns - kGap);

  put(InputText_, row, kFirstButton, kLast);
  grid->addWidget(MakeAccuracyBox(), row++, kLast, 4, 1, Qt::AlignCenter);

  put(Label15_, row++, kLocator, 2);
  put(FindIt_, row, kFirstButton);
  put(Lookup_, row, kSecondButton);
  put(LocText_, row, kLocator);
  put(NGRText_, row++, kReference);
  put(EastNorth_, row++, kReference);

  put(SetHome_, row, kFirstButton);
  put(GenList_, row, kSecondButton);
  put(Gmap_, row, kLocator);
  put(OSMap_, row++, kReference);

  put(UseNMEA_, row, kFirstButton);
  put(LocSites_, row, kSecondButton);
  put(LLText_, row, kLocator, 2);
  put(LLfmt_, row++, kLast);
  put(Label4_, row++, kLocator, 2);

  put(BaseLocLbl_, row++, 0, kColumns);
  grid->addWidget(SaveOnExit_, row, 0, 1, kColumns, Qt::AlignRight);
  grid->setColumnMinimumWidth(kGap, grid->horizontalSpacing());
  grid->setColumnStretch(kLocator, 1);
  grid->setColumnStretch(kReference, 1);
}

QWidget* MainWindowView::MakeAccuracyBox() {
  auto* box = new QWidget(this);
  auto* grid = new QGridLayout(box);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(2);
  for (CaptionLabel* label : {Xdim_, Ydim_})
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance("100000m"));
  Frame1_->setFixedSize(kAccuracySquare * FontScale(this));
  grid->addWidget(Label5_, 0, 0, 1, 2);
  grid->addWidget(Xdim_, 1, 1);
  grid->addWidget(Ydim_, 2, 0);
  grid->addWidget(Frame1_, 2, 1, Qt::AlignHCenter);
  return box;
}

QWidget* MainWindowView::MakeListingPanel() {
  auto* panel = new QWidget(this);
  auto* grid = new QGridLayout(panel);
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
  return panel;
}

// The user may leave the main window partly off the screen.
QPoint MainWindowView::PlaceFor(QPoint wanted) const {
  const QRect screen = ScreenAt(wanted);
  return {
      std::clamp(wanted.x(), screen.left() + kReachable - width(), screen.right() - kReachable),
      std::clamp(wanted.y(), screen.top(), std::max(screen.top(), screen.bottom() - kReachable))};
}

// The logic sets a height for each layout; the fonts may need more.
void MainWindowView::ShowSize() {
  ShowListing();
  ResizeToDesign();
}

// Once shown, the rows of the listing stay; the logic hides the controls in them.
void MainWindowView::ShowListing() {
  if (record_.MakeList.visible) listing_->show();
}

// Qt's Tab skips the widget before a focus proxy, here the field above the input box.
bool MainWindowView::focusNextPrevChild(bool next) {
  setFocusProxy(nullptr);
  const bool moved = RecordWindow::focusNextPrevChild(next);
  setFocusProxy(InputText_);
  return moved;
}

// The caption "Loc ... NGR" is one text, but each word is above its field.
bool MainWindowView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == NGRText_ && (event->type() == QEvent::Resize || event->type() == QEvent::Move))
    Label15_->SetLastWordAt(NGRText_->x() - LocText_->x());
  return RecordWindow::eventFilter(watched, event);
}
