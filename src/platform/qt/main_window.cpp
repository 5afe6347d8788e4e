#include "platform/qt/main_window.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QMouseEvent>
#include <QShortcut>
#include <algorithm>

#include "platform/desktop/qt_text.h"

namespace {

// The columns of the upper part: two of buttons, two of references, one of the accuracy box.
enum Column { kFirstButton, kSecondButton, kGap, kLocator, kReference, kLast, kColumns };

constexpr QSize kAccuracySquare(45, 43);
constexpr double kLargePoints = 12;

// How much of a title bar must be on the screen to be taken hold of.
constexpr int kReach = 80;

}  // namespace

MainWindowView::MainWindowView(Mirror& mirror)
    : FramedWindow(mirror, mirror.w.Tarnwick, "Tarnwick"),
      widgets_(mirror, WindowName::Tarnwick, mirror.w.Tarnwick, this) {
  widgets_["Label14"]->setFont(FontOf(this, 0, true));
  for (const char* name : {"LocText", "NGRText", "BaseLocLbl"})
    widgets_[name]->setFont(FontOf(this, kLargePoints, true));
  widgets_["LLText"]->setFont(FontOf(this, kLargePoints, false));
  for (const char* name : {"LocText", "NGRText", "LLText", "EastNorth"})
    widgets_.As<QLineEdit>(name)->setAlignment(Qt::AlignCenter);
  for (const char* name : {"Xdim", "BaseLocLbl", "Label4", "Label5"})
    widgets_.As<QLabel>(name)->setAlignment(Qt::AlignCenter);
  widgets_.As<QLabel>("Ydim")->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  MakeRoomFor(widgets_.As<QLineEdit>("LocText"), "WW00WW00WW");
  MakeRoomFor(widgets_.As<QLineEdit>("NGRText"), "WW00000 00000");
  MakeRoomFor(widgets_.As<QLineEdit>("EastNorth"), "E: 000000 , N: 0000000");
  MakeRoomFor(widgets_.As<QLineEdit>("LLText"), "000° 00' 00.0'' W, 000° 00' 00.0'' W");
  MakeRoomFor(widgets_.As<QLineEdit>("LocDatabase"), "c:\\geog\\Sites.dat 0000");

  // The captions of this button change; the columns must not.
  auto* realTime = widgets_.As<QPushButton>("UseNMEA");
  for (const char* caption : {kRealTimeCaption, kPauseCaption, kResumeCaption}) {
    realTime->setText(caption);
    realTime->setMinimumWidth(std::max(realTime->minimumWidth(), realTime->sizeHint().width()));
  }
  realTime->setText(ToQt(mirror.w.Tarnwick.UseNMEA.caption));

  widgets_.Label("Label2", "InputText");
  widgets_.Label("Label1", "LocDatabase");
  widgets_["LocText"]->setAccessibleName("Locator");
  widgets_["NGRText"]->setAccessibleName("National Grid Reference");
  widgets_["EastNorth"]->setAccessibleName("Eastings and northings");
  widgets_["LLText"]->setAccessibleName("Latitude and longitude");

  auto* whole = new QVBoxLayout(this);
  auto* grid = new QGridLayout;
  LayOutPlace(grid);
  whole->addLayout(grid);
  listing_ = ListingPanel();
  whole->addWidget(listing_);
  listing_->hide();
  whole->addStretch();

  // From here on the record knows how wide the window really is.
  state_.width = std::max(state_.width, static_cast<float>(sizeHint().width()) * kTwipsPerPixel);
  widgets_["InputText"]->installEventFilter(this);
  widgets_["NGRText"]->installEventFilter(this);
  setFocusProxy(widgets_["InputText"]);
  setFocus();
  LetKeysBeginAnew();
  mirror.OnShow([this] {
    const MainWindow& main = mirror_.w.Tarnwick;
    ShowListing();
    SetDefaultButton(widgets_.ButtonOf(main.*main.defaultButton));
  });
}

// The next place can be typed without a click in the box: what was used gives way to it, and a key
// does what the click would.
void MainWindowView::LetKeysBeginAnew() {
  auto* input = widgets_.As<QLineEdit>("InputText");
  for (const char* name : {"FindIt", "SetHome"})
    connect(widgets_.As<QPushButton>(name), &QPushButton::clicked, input, &QLineEdit::selectAll);
  auto* anew = new QShortcut(Qt::ALT | Qt::Key_I, this);
  connect(anew, &QShortcut::activated, input, [this, input] {
    input->setFocus();
    mirror_.Run(*FindEvent(WindowName::Tarnwick, "InputText", UserAction::Click));
  });
}

void MainWindowView::LayOutPlace(QGridLayout* grid) {
  const auto put = [this, grid](const char* name, int row, int column, int columns = 1) {
    grid->addWidget(widgets_[name], row, column, 1, columns);
  };
  int row = 0;
  put("Label14", row++, 0, kColumns);

  auto* database = new QHBoxLayout;
  database->addStretch();
  database->addWidget(widgets_["Label1"]);
  database->addWidget(widgets_["LocDatabase"], 1);
  put("Label2", row, kFirstButton, 2);
  grid->addLayout(database, row++, kGap, 1, kColumns - kGap);

  put("InputText", row, kFirstButton, kLast);
  grid->addWidget(AccuracyBox(), row++, kLast, 4, 1, Qt::AlignCenter);

  put("Label15", row++, kLocator, 2);
  put("FindIt", row, kFirstButton);
  put("Lookup", row, kSecondButton);
  put("LocText", row, kLocator);
  put("NGRText", row++, kReference);
  put("EastNorth", row++, kReference);

  put("SetHome", row, kFirstButton);
  put("GenList", row, kSecondButton);
  put("Gmap", row, kLocator);
  put("OSMap", row++, kReference);

  put("UseNMEA", row, kFirstButton);
  put("LocSites", row, kSecondButton);
  put("LLText", row, kLocator, 2);
  put("LLfmt", row++, kLast);
  put("Label4", row++, kLocator, 2);

  put("BaseLocLbl", row++, 0, kColumns);
  grid->addWidget(widgets_["SaveOnExit"], row, 0, 1, kColumns, Qt::AlignRight);
  grid->setColumnMinimumWidth(kGap, grid->horizontalSpacing());
  grid->setColumnStretch(kLocator, 1);
  grid->setColumnStretch(kReference, 1);
}

QWidget* MainWindowView::AccuracyBox() {
  auto* box = new QWidget(this);
  auto* grid = new QGridLayout(box);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(2);
  for (const char* name : {"Xdim", "Ydim"}) {
    QWidget* label = widgets_[name];
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance("100000m"));
  }
  widgets_["Frame1"]->setFixedSize(kAccuracySquare * Growth(this));
  grid->addWidget(widgets_["Label5"], 0, 0, 1, 2);
  grid->addWidget(widgets_["Xdim"], 1, 1);
  grid->addWidget(widgets_["Ydim"], 2, 0);
  grid->addWidget(widgets_["Frame1"], 2, 1, Qt::AlignHCenter);
  return box;
}

QWidget* MainWindowView::ListingPanel() {
  auto* panel = new QWidget(this);
  auto* grid = new QGridLayout(panel);
  grid->setContentsMargins(0, 0, 0, 0);
  const auto put = [this, grid](const char* name, int row, int column, int columns = 1) {
    grid->addWidget(widgets_[name], row, column, 1, columns);
  };
  put("Label10", 0, 0, 5);
  put("Label3", 1, 0);
  put("MinDisttext", 1, 1);
  put("Label7", 1, 2);
  put("MaxDistText", 1, 3);
  put("Label8", 2, 0);
  put("FromBearText", 2, 1);
  put("Label9", 2, 2);
  put("ToBearText", 2, 3);
  put("MakeList", 2, 4);
  put("Label13", 3, 0);
  put("Srchtext", 3, 1, 3);
  put("Label11", 4, 0);
  put("ListFileName", 4, 1, 3);
  put("ShowAll", 4, 4);
  widgets_.Label("Label3", "MinDisttext");
  widgets_.Label("Label7", "MaxDistText");
  widgets_.Label("Label8", "FromBearText");
  widgets_.Label("Label9", "ToBearText");
  widgets_.Label("Label13", "Srchtext");
  widgets_.Label("Label11", "ListFileName");
  return panel;
}

// The user may have left it half off the screen.
QPoint MainWindowView::PlaceFor(QPoint wanted) const {
  const QRect screen = ScreenAt(wanted);
  return {std::clamp(wanted.x(), screen.left() + kReach - width(), screen.right() - kReach),
          std::clamp(wanted.y(), screen.top(), std::max(screen.top(), screen.bottom() - kReach))};
}

// The heights that the logic sets say which rows are there; the fonts say how high those are.
void MainWindowView::ShowSize() {
  ShowListing();
  ResizeToDesign();
}

// From the first time on the rows of the listing stay; the logic hides what is in them.
void MainWindowView::ShowListing() {
  if (mirror_.w.Tarnwick.MakeList.visible) listing_->show();
}

// Qt would take the window's proxy for the widget at the window's place in the chain, which is
// before the field above the input box: going on by Tab never came to that.
bool MainWindowView::focusNextPrevChild(bool next) {
  setFocusProxy(nullptr);
  const bool moved = FramedWindow::focusNextPrevChild(next);
  setFocusProxy(widgets_["InputText"]);
  return moved;
}

bool MainWindowView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widgets_["NGRText"]) {
    // The caption "Loc ... NGR" is one text, but each word stands over its field.
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
      widgets_.As<CaptionLabel>("Label15")->SetLastWordAt(widgets_["NGRText"]->x() -
                                                          widgets_["LocText"]->x());
  } else if (event->type() == QEvent::MouseButtonRelease) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() == Qt::LeftButton &&
        widgets_["InputText"]->rect().contains(mouse->position().toPoint()))
      mirror_.Run(*FindEvent(WindowName::Tarnwick, "InputText", UserAction::Click));
  }
  return FramedWindow::eventFilter(watched, event);
}
