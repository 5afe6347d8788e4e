#include "platform/qt/main_window.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <algorithm>

#include "platform/desktop/qt_text.h"
#include "platform/qt/accessibility.h"
#include "platform/qt/layout_helpers.h"
#include "platform/qt/listing_panel.h"

namespace {

// The columns of the upper part: two of buttons, a gap, two of references, one of the accuracy box.
enum Column { kFirstButton, kSecondButton, kGap, kLocator, kReference, kLast, kColumns };

constexpr QSize kAccuracySquare(45, 43);
constexpr double kLargePoints = 12;

// Pixels of the window that stay on the screen, so that the user can drag its title bar.
constexpr int kReachable = 80;

}  // namespace

MainWindowView::MainWindowView(CommandRunner& runner) : RecordWindow(runner, runner.w.Tarnwick) {
  StyleFields();
  NameFields();

  auto* content = new QWidget(this);
  column_ = new QVBoxLayout(content);
  auto* grid = new QGridLayout;
  LayOutPlace(grid);
  column_->addLayout(grid);
  column_->addStretch();
  scroll_ = new ScreenScrollArea(content, this);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(scroll_);

  // Store the width that the fonts need in the record.
  state_.width = std::max(state_.width, static_cast<float>(sizeHint().width()) * kTwipsPerPixel);
  setFocusProxy(InputText_);
  setFocus();
  for (const QPushButton* button : {FindIt_, SetHome_})
    connect(button, &QPushButton::clicked, this, &MainWindowView::SelectInput);
  connect(GenList_, &QPushButton::clicked, this, &MainWindowView::StartListing);
  runner.AddRefresher(this, [this] {
    ShowListing();
    if (IsHomeNext()) SelectInput();
  });
}

// Selects the input text, so that typing replaces it by the next place. While Enter means Set as
// Home, the text is not selected: typing over it and pressing Enter would store the home station
// under a wrong name.
void MainWindowView::SelectInput() {
  IsHomeNext() ? InputText_->end(false) : InputText_->selectAll();
}

void MainWindowView::UsePlace(const QString& place) {
  InputText_->setText(place);
  FindIt_->click();
}

void MainWindowView::StyleFields() {
  Label14_->setFont(FontAtLeast(this, 0, true));
  for (QLineEdit* field : {LocText_, NGRText_})
    field->setFont(FontAtLeast(this, kLargePoints, true));
  BaseLocLbl_->SetWrapping();
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

  // The columns must not change with the caption, so the button is as wide as its longest caption.
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
  // Their captions are lengths without a word, such as "100m".
  Describe(Xdim_, "Resolution, width");
  Describe(Ydim_, "Resolution, height");
}

void MainWindowView::LayOutPlace(QGridLayout* grid) {
  const auto put = [grid](QWidget* widget, int row, int column, int columns = 1) {
    grid->addWidget(widget, row, column, 1, columns);
  };
  int row = 0;
  put(Label14_, row++, 0, kColumns);

  auto* database = new QHBoxLayout;
  database->addWidget(Label1_);
  database->addWidget(LocDatabase_, 1);
  put(Label2_, row, kFirstButton, 2);
  grid->addLayout(database, row++, kLocator, 1, kColumns - kLocator);

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
  if (listing_ != nullptr || !record_.MakeList.visible) return;
  listing_ = new ListingPanel(*this);
  column_->insertWidget(1, listing_);
  listing_->show();
}

void MainWindowView::StartListing() {
  if (listing_ == nullptr || !record_.MakeList.visible) return;
  listing_->FirstField()->setFocus();
  listing_->FirstField()->selectAll();
  scroll_->ensureWidgetVisible(listing_->FirstField());
}

// Text keys that the widget with the focus ignores go into the input box.
void MainWindowView::keyPressEvent(QKeyEvent* event) {
  const bool isText = !event->text().isEmpty() && event->text().front().isPrint();
  if (!isText || (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0)
    return RecordWindow::keyPressEvent(event);
  activateWindow();
  InputText_->setFocus();
  QApplication::sendEvent(InputText_, event);
}

// Qt's Tab skips the widget before a focus proxy, here the field above the input box.
bool MainWindowView::focusNextPrevChild(bool next) {
  setFocusProxy(nullptr);
  const bool moved = RecordWindow::focusNextPrevChild(next);
  setFocusProxy(InputText_);
  return moved;
}

bool MainWindowView::eventFilter(QObject* watched, QEvent* event) {
  // When Tab reaches a field, Qt selects its text after this filter has run.
  if (watched == InputText_ && event->type() == QEvent::FocusIn && IsHomeNext())
    QTimer::singleShot(0, this, &MainWindowView::SelectInput);
  // The caption "Loc ... NGR" is one text, but each word must be above its field.
  if (watched == NGRText_ && (event->type() == QEvent::Resize || event->type() == QEvent::Move))
    Label15_->SetLastWordAt(NGRText_->x() - LocText_->x());
  return RecordWindow::eventFilter(watched, event);
}
