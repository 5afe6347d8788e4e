#include "platform/qt/main_window.h"

#include <QApplication>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QTimer>
#include <algorithm>

#include "platform/desktop/qt_text.h"

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
  auto* content = new QWidget(this);
  auto* column = new QVBoxLayout(content);
  auto* grid = new QGridLayout;
  LayOutPlace(grid);
  column->addLayout(grid);
  QWidget* listing = MakeListingPanel();
  column->addWidget(listing);
  column->addStretch();
  scroll_ = new ScreenScrollArea(content, this);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(scroll_);

  // Store the width that the fonts need in the record.
  state_.width = std::max(state_.width, static_cast<float>(sizeHint().width()) * kTwipsPerPixel);
  setFocusProxy(input_);
  setFocus();
  input_->installEventFilter(this);
  for (const auto button : {&MainWindow::FindIt, &MainWindow::SetHome})
    connect(WidgetOf(button), &QPushButton::clicked, this, &MainWindowView::SelectInput);
  connect(WidgetOf(&MainWindow::GenList), &QPushButton::clicked, this,
          &MainWindowView::StartListing);
  runner.AddRefresher([this, listing] {
    // Once shown, the rows of the listing stay; the logic hides the controls in them.
    if (record_.MakeList.visible) listing->show();
    if (IsSetHomeDefault()) SelectInput();
  });
}

// Selects the input text, so that typing replaces it by the next place. While Enter means Set as
// Home, the text is not selected: typing over it and pressing Enter would store the home station
// under a wrong name.
void MainWindowView::SelectInput() {
  IsSetHomeDefault() ? input_->end(false) : input_->selectAll();
}

void MainWindowView::UsePlace(const QString& place) {
  input_->setText(place);
  WidgetOf(&MainWindow::FindIt)->click();
}

void MainWindowView::StyleFields() {
  const struct {
    TextBox MainWindow::*field;
    const char* name;
    const char* widest;  // text
    double points;
    bool bold;
  } results[] = {
      {&MainWindow::LocText, "Locator", "WW00WW00WW", kLargePoints, true},
      {&MainWindow::NGRText, "National Grid Reference", "WW00000 00000", kLargePoints, true},
      {&MainWindow::EastNorth, "Eastings and northings", "E: 000000 , N: 0000000", 0, false},
      {&MainWindow::LLText, "Latitude and longitude", "000° 00' 00.0'' W, 000° 00' 00.0'' W",
       kLargePoints, false}};
  for (const auto& [field, name, widest, points, bold] : results) {
    QLineEdit* edit = WidgetOf(field);
    edit->setAccessibleName(name);
    edit->setAlignment(Qt::AlignCenter);
    edit->setFont(FontAtLeast(this, points, bold));
    SetMinimumWidthFor(edit, widest);
  }
  SetMinimumWidthFor(WidgetOf(&MainWindow::LocDatabase), "c:\\geog\\Sites.dat 0000");
  WidgetOf(&MainWindow::Label14)->setFont(FontAtLeast(this, 0, true));
  CaptionLabel* home = WidgetOf(&MainWindow::BaseLocLbl);
  home->SetWrapping();
  home->setFont(FontAtLeast(this, kLargePoints, true));
  home->setAlignment(Qt::AlignCenter);
  WidgetOf(&MainWindow::Label4)->setAlignment(Qt::AlignCenter);

  // The columns must not change with the caption, so the button is as wide as its longest caption.
  QPushButton* gps = WidgetOf(&MainWindow::UseNMEA);
  for (const char* caption : {kPauseCaption, kResumeCaption, kRealTimeCaption}) {
    gps->setText(caption);
    gps->setMinimumWidth(std::max(gps->minimumWidth(), gps->sizeHint().width()));
  }
  gps->setText(ToQt(record_.UseNMEA.caption));
}

void MainWindowView::LayOutPlace(QGridLayout* grid) {
  const auto put = [this, grid](auto control, int row, int column, int columns = 1) {
    grid->addWidget(WidgetOf(control), row, column, 1, columns);
  };
  int row = 0;
  put(&MainWindow::Label14, row++, 0, kColumns);

  QLineEdit* path = WidgetOf(&MainWindow::LocDatabase);
  WidgetOf(&MainWindow::Label1)->setBuddy(path);
  WidgetOf(&MainWindow::Label2)->setBuddy(input_);
  auto* database = new QHBoxLayout;
  database->addWidget(WidgetOf(&MainWindow::Label1));
  database->addWidget(path, 1);
  put(&MainWindow::Label2, row, kFirstButton, 2);
  grid->addLayout(database, row++, kLocator, 1, kColumns - kLocator);

  put(&MainWindow::InputText, row, kFirstButton, kLast);
  grid->addWidget(MakeAccuracyBox(), row++, kLast, 4, 1, Qt::AlignCenter);

  // The caption "Loc ... NGR" is one text, but each word must be above its field.
  WidgetOf(&MainWindow::Label15)->SetLastWordAbove(WidgetOf(&MainWindow::NGRText));
  put(&MainWindow::Label15, row++, kLocator, 2);
  put(&MainWindow::FindIt, row, kFirstButton);
  put(&MainWindow::Lookup, row, kSecondButton);
  put(&MainWindow::LocText, row, kLocator);
  put(&MainWindow::NGRText, row++, kReference);
  put(&MainWindow::EastNorth, row++, kReference);

  put(&MainWindow::SetHome, row, kFirstButton);
  put(&MainWindow::GenList, row, kSecondButton);
  put(&MainWindow::Gmap, row, kLocator);
  put(&MainWindow::OSMap, row++, kReference);

  put(&MainWindow::UseNMEA, row, kFirstButton);
  put(&MainWindow::LocSites, row, kSecondButton);
  put(&MainWindow::LLText, row, kLocator, 2);
  put(&MainWindow::LLfmt, row++, kLast);
  put(&MainWindow::Label4, row++, kLocator, 2);

  put(&MainWindow::BaseLocLbl, row++, 0, kColumns);
  grid->addWidget(WidgetOf(&MainWindow::SaveOnExit), row, 0, 1, kColumns, Qt::AlignRight);
  grid->setColumnMinimumWidth(kGap, grid->horizontalSpacing());
  grid->setColumnStretch(kLocator, 1);
  grid->setColumnStretch(kReference, 1);
}

QWidget* MainWindowView::MakeAccuracyBox() {
  auto* box = new QWidget(this);
  auto* grid = new QGridLayout(box);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(2);
  CaptionLabel* heading = WidgetOf(&MainWindow::Label5);
  CaptionLabel* width = WidgetOf(&MainWindow::Xdim);
  CaptionLabel* height = WidgetOf(&MainWindow::Ydim);
  QFrame* square = WidgetOf(&MainWindow::Frame1);
  heading->setAlignment(Qt::AlignCenter);
  width->setAlignment(Qt::AlignCenter);
  height->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  // Their captions are lengths without a word, such as "100m".
  Describe(width, "Resolution, width");
  Describe(height, "Resolution, height");
  for (CaptionLabel* label : {width, height})
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance("100000m"));
  square->setFixedSize(kAccuracySquare * FontScale(this));
  grid->addWidget(heading, 0, 0, 1, 2);
  grid->addWidget(width, 1, 1);
  grid->addWidget(height, 2, 0);
  grid->addWidget(square, 2, 1, Qt::AlignHCenter);
  return box;
}

QWidget* MainWindowView::MakeListingPanel() {
  auto* panel = new QWidget(this);
  auto* grid = new QGridLayout(panel);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->addWidget(WidgetOf(&MainWindow::Label10), 0, 0, 1, 5);
  const struct {
    Label MainWindow::*label;
    TextBox MainWindow::*field;
    int row, column, fieldColumns;
  } fields[] = {{&MainWindow::Label3, &MainWindow::MinDisttext, 1, 0, 1},
                {&MainWindow::Label7, &MainWindow::MaxDistText, 1, 2, 1},
                {&MainWindow::Label8, &MainWindow::FromBearText, 2, 0, 1},
                {&MainWindow::Label9, &MainWindow::ToBearText, 2, 2, 1},
                {&MainWindow::Label13, &MainWindow::Srchtext, 3, 0, 3},
                {&MainWindow::Label11, &MainWindow::ListFileName, 4, 0, 3}};
  for (const auto& [label, field, row, column, fieldColumns] : fields)
    AddLabelled(grid, WidgetOf(label), WidgetOf(field), row, column, fieldColumns);
  grid->addWidget(WidgetOf(&MainWindow::MakeList), 2, 4);
  grid->addWidget(WidgetOf(&MainWindow::ShowAll), 4, 4);
  // Tab goes through all limits first: what is typed on a button goes into the input box.
  setTabOrder(WidgetOf(&MainWindow::ShowAll), WidgetOf(&MainWindow::MakeList));
  panel->hide();
  return panel;
}

// The user may leave the main window partly off the screen.
QPoint MainWindowView::FramePositionFor(QPoint wanted) const {
  const QRect screen = ScreenAt(wanted);
  return {
      std::clamp(wanted.x(), screen.left() + kReachable - width(), screen.right() - kReachable),
      std::clamp(wanted.y(), screen.top(), std::max(screen.top(), screen.bottom() - kReachable))};
}

void MainWindowView::StartListing() {
  if (!record_.MakeList.visible) return;
  QLineEdit* first = WidgetOf(&MainWindow::MinDisttext);
  first->setFocus();
  first->selectAll();
  scroll_->ensureWidgetVisible(first);
}

// Text keys that the widget with the focus ignores go into the input box.
void MainWindowView::keyPressEvent(QKeyEvent* event) {
  const bool isText = !event->text().isEmpty() && event->text().front().isPrint();
  if (!isText || (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0)
    return RecordWindow::keyPressEvent(event);
  activateWindow();
  input_->setFocus();
  QApplication::sendEvent(input_, event);
}

// Qt's Tab skips the widget before a focus proxy, here the field above the input box.
bool MainWindowView::focusNextPrevChild(bool next) {
  setFocusProxy(nullptr);
  const bool moved = RecordWindow::focusNextPrevChild(next);
  setFocusProxy(input_);
  return moved;
}

bool MainWindowView::eventFilter(QObject* watched, QEvent* event) {
  // When Tab reaches a field, Qt selects its text after this filter has run.
  if (watched == input_ && event->type() == QEvent::FocusIn && IsSetHomeDefault())
    QTimer::singleShot(0, this, &MainWindowView::SelectInput);
  return RecordWindow::eventFilter(watched, event);
}
