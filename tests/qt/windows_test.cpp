// The real windows: the record and the widgets agree, whatever the user does.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>
#include <memory>

#include "platform/desktop/qt_text.h"
#include "platform/qt/application.h"
#include "sites/lookup/results.h"
#include "workspace/events/main_window_layout.h"
#include "workspace/record/control_tables.h"

namespace {

// A program of its own, with a home folder of its own, as it stands after the start.
class Windows : public testing::Test {
 protected:
  Windows() {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home_.filePath("config"));
    qputenv("XDG_DATA_HOME", home_.filePath("data").toUtf8());
    Restart();
  }

  void Restart(const QString& place = {}) {
    program_.reset();
    program_ = std::make_unique<Application>();
    program_->Start(place);
  }

  FramedWindow& Pointing() { return program_->WindowOf(WindowName::BearingCalc); }
  FramedWindow& Results() { return program_->WindowOf(WindowName::ShowList); }
  FramedWindow& PortSetUp() { return program_->WindowOf(WindowName::SetUpCom); }
  template <class Widget = QLineEdit>
  Widget* Find(const char* name, QWidget* in = nullptr) {
    auto* found = (in != nullptr ? in : &program_->mainWindow)->findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  std::string TextOf(const char* name, QWidget* in = nullptr) {
    return Find(name, in)->text().toStdString();
  }
  void Type(const char* text) {
    auto* input = Find("InputText");
    input->setFocus();
    input->selectAll();
    QTest::keyClicks(input, QString::fromUtf8(text));
  }
  void Enter() { QTest::keyClick(Find("InputText"), Qt::Key_Return); }
  // In short rounds: where events take long, as under emulation, one round serves those that are
  // due, and the others leave the whole time to the timers that they started.
  static void Wait(int milliseconds) {
    for (int waited = 0; waited < milliseconds; waited += 10) QTest::qWait(10);
  }
  void Click(const char* name, QWidget* in = nullptr) {
    QTest::mouseClick(Find<QPushButton>(name, in), Qt::LeftButton);
  }

  void ListAndPick() {
    program_->runner.Run([](Workspace& w) {
      OpenResults(w);
      w.ShowList.PR.items.Add("IO91WM");
      w.ShowList.PR.items.Add("IO91WN");
    });
    Results().BringToFront();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Results()));
    QTest::keyClick(Results().focusWidget(), Qt::Key_Down);
    QTest::keyClick(Results().focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&program_->mainWindow));
  }

  // Moves the frame of a window behind the back of its widget, as a window manager does.
  static void MoveByUser(FramedWindow& window, QPoint position) {
    QTest::qWait(1);
    window.windowHandle()->setFramePosition(position);
    QTest::qWait(1);
  }

  QTemporaryDir home_;
  std::unique_ptr<Application> program_;
};

TEST_F(Windows, ShowAPlaceAHomeStationAndABearing) {
  Type("io91wm");
  Enter();
  EXPECT_EQ(TextOf("NGRText"), "TQ30 82");
  EXPECT_EQ(Find("NGRText")->palette().color(QPalette::Text), QColor(255, 0, 0));
  EXPECT_FALSE(Pointing().isVisible());
  Click("SetHome");
  EXPECT_TRUE(Pointing().isVisible());
  Type("NN166712");
  Enter();
  EXPECT_EQ(TextOf("BearText", &Pointing()), "333.5");
  const auto* compass = QAccessible::queryAccessibleInterface(Find<QWidget>("C", &Pointing()));
  EXPECT_EQ(compass->role(), QAccessible::Graphic);
  EXPECT_EQ(compass->text(QAccessible::Name), "Bearing 333.5 degrees");
  Pointing().close();
  EXPECT_FALSE(Pointing().isVisible());
  Type(
      "51\xC2\xB0"
      "30'15\"N, 1\xC2\xB0"
      "15'30\"W");
  Enter();
  EXPECT_EQ(TextOf("NGRText"), "SU51574 78620");
  Click("SetHome");
  EXPECT_TRUE(Pointing().isVisible());
}

TEST_F(Windows, BringBackTheHomeStationAndThePlaceOnScreen) {
  Type("io91wm");
  Enter();
  Click("SetHome");
  Find<QCheckBox>("SaveOnExit")->click();
  MoveByUser(program_->mainWindow, {120, 90});
  program_->mainWindow.close();
  Restart();
  EXPECT_EQ(TextOf("LocText"), "IO91WM44MM");
  EXPECT_EQ(program_->mainWindow.pos(), QPoint(120, 90));
  EXPECT_EQ(program_->w.Tarnwick.left, 1800);
  EXPECT_TRUE(Pointing().isVisible());
}

TEST_F(Windows, UseThePlaceOfTheCommandLine) {
  Restart("51 30 15 N 1 15 30 W");
  EXPECT_EQ(TextOf("InputText"), "51 30 15 N 1 15 30 W");
  EXPECT_EQ(TextOf("NGRText"), "SU51574 78620");
}

// Letters of other sets give way as they are typed; a screen reader sets texts without keys.
TEST_F(Windows, TakeEditsWhateverTheirSource) {
  Find("InputText")->setText(QString::fromUtf8("51\u203230\u2033N \u22121\U0001F600\u00E9"));
  EXPECT_EQ(program_->w.Tarnwick.InputText.text, "51'30\"N -1?\xE9");
  EXPECT_EQ(TextOf("InputText"), "51'30\"N -1?\u00E9");
  Find("InputText")->setText("\r\nNN166712\r\nNN166713");  // cells of a table
  EXPECT_EQ(program_->w.Tarnwick.InputText.text, "NN166712");
  Find("LocDatabase")->setText("/tmp/elsewhere.dat");
  EXPECT_EQ(program_->w.Tarnwick.LocDatabase.text, "/tmp/elsewhere.dat");
  Find<QComboBox>("Baud", &PortSetUp())->setEditText("115200");
  EXPECT_EQ(program_->w.SetUpCom.Baud.text, "115200");
  // A command that brings back what was there before the edit shows it.
  program_->runner.Run(GenList_Click);
  Find("MinDisttext")->setText("5");
  program_->runner.Run([](Workspace& w) {
    w.Tarnwick.MinDisttext.text = "0";
    w.SetUpCom.Baud.text = "9600";
  });
  EXPECT_EQ(TextOf("MinDisttext"), "0");
  QTest::keyClicks(Find("NGRText"), "1");
  EXPECT_EQ(TextOf("NGRText"), "") << "read-only";
  EXPECT_EQ(Find<QComboBox>("Baud", &PortSetUp())->currentText(), "9600");
}

TEST_F(Windows, PressTheDefaultButtonByEnterAndAFocusedOneBySpace) {
  program_->mainWindow.BringToFront();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&program_->mainWindow));
  Type("io91wm");
  QTest::keyClick(Find("LocDatabase"), Qt::Key_Enter);
  EXPECT_EQ(TextOf("LocText"), "IO91WM");
  auto* format = Find<QPushButton>("LLfmt");
  format->setFocus();
  EXPECT_FALSE(Find<QPushButton>("FindIt")->isDefault()) << "it would look as if Enter pressed it";
  QTest::keyClick(format, Qt::Key_Return);
  EXPECT_EQ(program_->w.LLFormat, 1);
  QTest::keyClick(format, Qt::Key_Space);
  EXPECT_EQ(program_->w.LLFormat, 2);
  Click("SetHome");
  EXPECT_EQ(program_->mainWindow.focusWidget(), format) << "a click leaves the focus alone";
  Find<QPushButton>("GenList")->setFocus();
  QTest::keyClick(Find<QPushButton>("GenList"), Qt::Key_Space);
  EXPECT_EQ(program_->mainWindow.focusWidget()->objectName(), "MinDisttext");
  EXPECT_EQ(Find("MinDisttext")->selectedText(), "0");
  EXPECT_TRUE(Find<QPushButton>("MakeList")->isDefault());
  EXPECT_TRUE(Find<QPushButton>("MakeList")->isVisible());
  QTest::keyClick(Find("InputText"), Qt::Key_Escape);
  EXPECT_TRUE(program_->mainWindow.isVisible());
  QTest::mouseClick(Find("InputText"), Qt::LeftButton);
  EXPECT_TRUE(Find<QPushButton>("FindIt")->isDefault());
  EXPECT_EQ(TextOf("InputText"), "");
}

// While the box is open the record is on screen and no command starts.
TEST_F(Windows, ShowTheRecordUnderAMessageBox) {
  Type("nowhere");
  bool seen = false;
  QTimer::singleShot(0, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text().toStdString(), "Site datbase not found");
    EXPECT_FALSE(Find<QPushButton>("SetHome")->isEnabled());
    Find<QPushButton>("LLfmt")->click();
    program_->mainWindow.close();
    seen = program_->w.LLFormat == 0 && program_->mainWindow.isVisible();
    box->accept();
  });
  Enter();
  EXPECT_TRUE(seen);
}

// The listing is there all the same; a map that no one shows is seen to be missing.
TEST_F(Windows, TellOfAListingThatNoProgramOpens) {
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", home_.path().toUtf8());
  QFile::copy(TARNWICK_SAMPLE, home_.filePath("data/tarnwick/drive_c/geog/Sites.dat"));
  Type("NN166712");
  Enter();
  Click("SetHome");
  std::string told;
  QTimer::singleShot(0, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    told = box->text().toStdString();
    box->accept();
  });
  Click("LocSites");
  EXPECT_EQ(told, "Path or filename error");
  EXPECT_TRUE(QFile::exists(home_.filePath("data/tarnwick/drive_c/geog/SITELIST.TXT")));
  Click("Gmap");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  qputenv("PATH", path);
}

// Every control can be found and is described; a field is named by its label or by itself, the
// live caption of a label or button by nothing else.
TEST_F(Windows, DescribeEveryControlToAssistiveTools) {
  program_->runner.Run(GenList_Click);
  const auto check = [this](QWidget* window, auto& record) {
    EachControl(record, [&](const char* name, auto&) {
      auto* widget = Find<QWidget>(name, window);
      ASSERT_NE(widget, nullptr);
      EXPECT_TRUE(widget->accessibleDescription().endsWith(QString("[%1]").arg(name))) << name;
      QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(widget);
      const bool showsCaption = qobject_cast<QLabel*>(widget) != nullptr ||
                                qobject_cast<QAbstractButton*>(widget) != nullptr;
      if (showsCaption) {
        EXPECT_TRUE(widget->accessibleName().isEmpty()) << name;
      } else if (widget->focusPolicy() != Qt::NoFocus) {
        EXPECT_FALSE(heard->text(QAccessible::Name).isEmpty()) << name;
      }
    });
  };
  check(&program_->mainWindow, program_->w.Tarnwick);
  check(&Pointing(), program_->w.BearingCalc);
  check(&Results(), program_->w.ShowList);
  check(&PortSetUp(), program_->w.SetUpCom);
}

TEST_F(Windows, DescribeControlsByTheirTipsAlone) {
  qunsetenv("TARNWICK_FIELD_NAMES");
  Restart();
  EXPECT_EQ(Find("NGRText")->accessibleDescription(), kCalculatedTip);
  EXPECT_EQ(Find("EastNorth")->accessibleDescription(), "");
  EXPECT_EQ(Find<QLabel>("Xdim")->accessibleDescription(), "Resolution, width");
  const auto* baud = Find<QComboBox>("Baud", &PortSetUp());
  EXPECT_EQ(baud->accessibleName(), "Baud Rate");
  EXPECT_EQ(baud->lineEdit()->accessibleName(), "Baud Rate");
  qputenv("TARNWICK_FIELD_NAMES", "1");
}

// Which form was calculated is seen by its colour; it must be heard as well.
TEST_F(Windows, SayWhichFormWasCalculated) {
  const struct {
    const char* typed;
    bool locator, reference;
  } rows[] = {{"io91wm", false, true}, {"NN166712", true, false}, {"51.5N 1.25W", false, false}};
  for (const auto& [typed, locator, reference] : rows) {
    Type(typed);
    Enter();
    const auto isCalculated = [this](const char* name) {
      return Find(name)->accessibleDescription().startsWith("Calculated.");
    };
    EXPECT_EQ(isCalculated("LocText"), locator) << typed;
    EXPECT_EQ(isCalculated("NGRText"), reference) << typed;
  }
  EXPECT_TRUE(Find("NGRText")->accessibleDescription().endsWith("[NGRText]"));
}

// Enter, Tab, access keys and F6 alone: a place, home, the next place, its figures copied.
TEST_F(Windows, DoEverythingByKeysAlone) {
  const auto key = [](int key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), with);
  };
  const auto typeAndEnter = [&](const char* text) {
    QTest::keyClicks(QApplication::focusWidget(), text);
    key(Qt::Key_Return);
  };
  const auto toMainWindow = [this] {
    program_->mainWindow.BringToFront();
    return QTest::qWaitForWindowActive(&program_->mainWindow);
  };
  ASSERT_TRUE(toMainWindow());
  typeAndEnter("io91wm");
  key(Qt::Key_S, Qt::AltModifier);
  // An access key takes the time of a click. Without a screen every window that appears is
  // activated.
  ASSERT_TRUE(QTest::qWaitFor([this] { return Pointing().isActiveWindow(); }));
  ASSERT_TRUE(toMainWindow());
  typeAndEnter("NN166712");
  EXPECT_EQ(TextOf("InputText"), "NN166712") << "what was used gives way";

  key(Qt::Key_F6);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Pointing()));
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "Ipt");
  const struct {
    const char *field, *copied;
  } figures[] = {{"BearText", "333.5"}, {"BackBearText", "149.6"}, {"DistText", "666.814"}};
  for (const auto& [field, copied] : figures) {
    key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), field);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), copied);
  }
  key(Qt::Key_F6);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&program_->mainWindow));

  key(Qt::Key_M, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return program_->w.Tarnwick.MakeList.visible; }));
  key(Qt::Key_I, Qt::AltModifier);
  EXPECT_FALSE(Find("MaxDistText")->isVisible());
  EXPECT_EQ(TextOf("InputText"), "");
  EXPECT_TRUE(Find<QPushButton>("FindIt")->isDefault());
}

TEST_F(Windows, LetTheMessageOfAReceiverBeCopied) {
  program_->runner.Run([](Workspace& w) {
    w.SetUpCom.visible = true;
    w.SetUpCom.Text1.text = "no such port";
  });
  auto* message = Find<QPlainTextEdit>("Text1", &PortSetUp());
  QTest::keyClick(message, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(message, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "no such port");
}

TEST_F(Windows, SelectThePortSoThatTypingReplacesIt) {
  for (const char* port : {"1", "COM9"}) {
    program_->runner.Run([port](Workspace& w) { w.SetUpCom.CPort.text = port; });
    program_->runner.Run([](Workspace& w) { w.SetUpCom.visible = true; });
    EXPECT_EQ(Find<QComboBox>("CPort", &PortSetUp())->lineEdit()->selectedText(), port);
    program_->runner.Run([](Workspace& w) { w.SetUpCom.visible = false; });
  }
}

// Going on by Tab, the eye goes down the window, and to the right on a line. The button that
// generates the list comes last, after the limits below it.
TEST_F(Windows, TabInTheOrderThatTheEyeFollows) {
  Type("io91wm");
  Enter();
  Click("SetHome");
  Click("GenList");
  program_->mainWindow.BringToFront();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&program_->mainWindow));
  auto* first = Find<QWidget>("LocDatabase");
  first->setFocus();
  QPoint before(0, 0);
  QWidget* last = nullptr;
  auto* generate = Find<QWidget>("MakeList");
  for (QWidget* at = first; at != generate; at = QApplication::focusWidget()) {
    const QPoint here = at->mapTo(&program_->mainWindow, QPoint());
    ASSERT_TRUE(here.y() > before.y() || here.x() > before.x()) << at->objectName().toStdString();
    before = here;
    last = at;
    QTest::keyClick(at, Qt::Key_Tab);
  }
  EXPECT_EQ(last->objectName(), "ShowAll");
  QTest::keyClick(generate, Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), first);
}

// The size that the logic gives and the user's are the record's; what the layout needs is not.
TEST_F(Windows, TakeTheirSizeFromTheUserAlone) {
  Type("io91wm");
  Enter();
  Click("SetHome");
  Click("GenList");
  QTest::qWait(1);
  EXPECT_EQ(program_->w.Tarnwick.height, 6780);
  EXPECT_EQ(program_->w.Tarnwick.top, 100) << "not a whole number of pixels";
  program_->mainWindow.windowHandle()->resize(800, 700);
  QTest::qWait(1);
  EXPECT_EQ(program_->w.Tarnwick.width, 12000);
  EXPECT_EQ(program_->w.Tarnwick.height, 10500);
}

// What a window manager makes of a request is not the user's doing.
TEST(ChangeOrigin, SeparatesTheUserFromTheWindowManager) {
  ChangeOrigin<int> origin;
  const struct {
    int requested, reported;  // 0: no request
    bool isUsers;
  } rows[] = {{1, 2, false},                 // placed elsewhere
              {0, 2, false}, {0, 1, false},  // a report for each of two changes
              {0, 3, true},  {0, 1, true},  {4, 1, false}, {0, 4, false}, {0, 5, true}};
  for (const auto& [requested, reported, isUsers] : rows) {
    if (requested != 0) origin.Request(requested);
    EXPECT_EQ(origin.IsUsers(reported), isUsers) << requested << " " << reported;
  }
}

// A double click does what OK does, beside the entries as well, where it leaves what is selected.
TEST_F(Windows, PickAnEntryByADoubleClick) {
  auto* list = Find<QListView>("PR", &Results());
  const auto at = [&](int row) {
    return row < 0 ? list->viewport()->rect().bottomRight()
                   : list->visualRect(list->model()->index(row, 0)).center();
  };
  const struct {
    int pressed, twice;
    Qt::MouseButton button;
    const char* picked;
  } rows[] = {{1, 1, Qt::LeftButton, "IO91WN"},
              {0, 0, Qt::RightButton, "typed"},
              {1, -1, Qt::LeftButton, "IO91WN"},
              {-1, -1, Qt::LeftButton, ""}};
  QFile::copy(TARNWICK_SAMPLE, home_.filePath("data/tarnwick/drive_c/geog/Sites.dat"));
  for (const auto& [pressed, twice, button, picked] : rows) {
    program_->runner.Run([](Workspace& w) {
      OpenResults(w);
      w.ShowList.PR.items.Add("IO91WM");
      w.ShowList.PR.items.Add("IO91WN");
      w.Tarnwick.InputText.text = "typed";
    });
    QTest::qWait(1);
    QTest::mouseClick(list->viewport(), button, {}, at(pressed));
    QTest::mouseDClick(list->viewport(), button, {}, at(twice));
    EXPECT_EQ(TextOf("InputText"), picked) << pressed << " " << twice;
    Results().close();
  }
}

// A text that Enter would make the home's name is never selected, however the box got the focus;
// the first arrow key has selected the first entry.
TEST_F(Windows, LeaveThePickedPlaceUnselected) {
  QFile::copy(TARNWICK_SAMPLE, home_.filePath("data/tarnwick/drive_c/geog/Sites.dat"));
  auto* input = Find("InputText");
  Type("io91wm");
  Enter();
  EXPECT_EQ(input->selectedText(), "IO91WM");
  ListAndPick();
  const auto expectCursorAtEnd = [input](const char* after) {
    EXPECT_EQ(input->selectedText(), "") << after;
    EXPECT_EQ(input->cursorPosition(), input->text().size()) << after;
  };
  EXPECT_EQ(input->text(), "IO91WM");
  expectCursorAtEnd("a pick");
  Find("LocDatabase")->setFocus();
  QTest::keyClick(Find("LocDatabase"), Qt::Key_Tab);
  QTest::qWait(1);
  EXPECT_EQ(QApplication::focusWidget(), input);
  expectCursorAtEnd("Tab");
  Enter();
  EXPECT_TRUE(Pointing().isVisible());
  expectCursorAtEnd("Set as Home");
}

// The main window comes forward with the Pointing window in front of the results.
TEST_F(Windows, RaiseThePointingWindowAfterAPick) {
  Type("io91wm");
  Enter();
  Click("SetHome");
  struct RaiseCounter : QObject {
    int raised = 0;
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
      if (event->type() == QEvent::ZOrderChange) ++raised;
      return false;
    }
  } counter;
  Pointing().installEventFilter(&counter);
  ListAndPick();
  EXPECT_GT(counter.raised, 0);
  EXPECT_TRUE(program_->mainWindow.isActiveWindow());
  Pointing().removeEventFilter(&counter);
}

// It never lies on the main window while the screen has room, unless the user moved it there.
TEST_F(Windows, KeepThePointingWindowClearOfTheMainWindow) {
  const QRect screen = program_->mainWindow.screen()->availableGeometry();
  const QSize size = program_->mainWindow.size();
  const struct {
    QPoint main;
    bool fits, fitsWithListing;
  } rows[] = {{{0, 0}, true, true},
              {{60, 180}, true, false},  // below, until the main window grows
              {{10, screen.height() - size.height()}, true, true}};
  for (const auto& [main, fits, fitsWithListing] : rows) {
    Restart();
    MoveByUser(program_->mainWindow, main);
    program_->w.BearingCalc.left = program_->w.Tarnwick.left + 1500;
    program_->w.BearingCalc.top = program_->w.Tarnwick.top + 1500;
    Type("io91wm");
    Enter();
    Click("SetHome");
    QTest::qWait(1);
    const auto overlaps = [this] {
      return Pointing().frameGeometry().intersects(program_->mainWindow.frameGeometry());
    };
    EXPECT_EQ(overlaps(), !fits) << main.y();
    Click("GenList");
    QTest::qWait(1);
    EXPECT_EQ(overlaps(), !fitsWithListing) << main.y();
    EXPECT_TRUE(screen.contains(Pointing().frameGeometry()));
    if (!fitsWithListing) {
      EXPECT_EQ(Pointing().frameGeometry().bottomRight(), screen.bottomRight());
    }
    MoveByUser(Pointing(), main + QPoint(50, 50));
    program_->mainWindow.resize(size);
    Pointing().close();
    Click("SetHome");
    EXPECT_EQ(Pointing().pos(), main + QPoint(50, 50)) << "the user's place";
  }
}

// A name of any length is read in full.
TEST_F(Windows, GrowTheBannerWithItsText) {
  auto* banner = Find<QLabel>("BaseLocLbl");
  const int line = banner->height();
  program_->runner.Run([](Workspace& w) {
    w.Tarnwick.BaseLocLbl.caption = "Home Station:";
    for (int i = 0; i < 30; ++i) w.Tarnwick.BaseLocLbl.caption += " Great Hill";
  });
  QTest::qWait(1);
  EXPECT_GT(banner->height(), 2 * line);
  EXPECT_GE(Find<QWidget>("SaveOnExit")->y(), banner->geometry().bottom());
  const QRect text = banner->fontMetrics().boundingRect(QRect(0, 0, banner->width(), 1000),
                                                        Qt::TextWordWrap, banner->text());
  EXPECT_GE(banner->height(), text.height());
}

// A notch of the wheel goes on by one column, half a notch by none.
TEST_F(Windows, TurnTheResultsByColumns) {
  program_->runner.Run([](Workspace& w) {
    OpenResults(w);
    for (int i = 0; i < 1'000; ++i) w.ShowList.PR.items.Add("IO91WM");
  });
  QTest::qWait(1);
  auto* list = Find<QListView>("PR", &Results());
  const auto turn = [list](int angle) {
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, angle}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(list->viewport(), &wheel);
    return list->horizontalScrollBar()->value();
  };
  EXPECT_EQ(turn(-60), 0);
  EXPECT_EQ(turn(-60), 1);
  EXPECT_EQ(turn(120), 0);
}

// Its figures keep their size, the compass takes the rest.
TEST_F(Windows, GrowTheCompassWithItsWindow) {
  Type("io91wm");
  Enter();
  Click("SetHome");
  Type("NN166712");
  Enter();
  const auto circleHeight = [this] {
    const QImage image = Find<QWidget>("C", &Pointing())->grab().toImage();
    int first = image.height(), last = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (qRed(image.pixel(x, y)) > 200 && qGreen(image.pixel(x, y)) < 100) {
          first = std::min(first, y);
          last = std::max(last, y);
        }
    return last - first;
  };
  const int before = circleHeight();
  const QSize figure = Find("BearText", &Pointing())->size();
  Pointing().resize(Pointing().size() + QSize(300, 300));
  QTest::qWait(1);
  EXPECT_GT(circleHeight(), before + 150);
  EXPECT_EQ(Find("BearText", &Pointing())->size(), figure);
}

// A held Enter and a double click press a button once.
TEST_F(Windows, PressAButtonOnceForADoubleClickOrAHeldEnter) {
  Click("LLfmt");
  QTest::mouseDClick(Find<QPushButton>("LLfmt"), Qt::LeftButton);
  QTest::mouseRelease(Find<QPushButton>("LLfmt"), Qt::LeftButton);
  EXPECT_EQ(program_->w.LLFormat, 1);
  Type("io91wm");
  for (const bool isRepeat : {true, false}) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", isRepeat);
    QApplication::sendEvent(Find("InputText"), &press);
    EXPECT_EQ(TextOf("LocText"), isRepeat ? "" : "IO91WM");
  }
}

TEST_F(Windows, UndoTheClickThatEmptiesTheBox) {
  Type("io91wm");
  QTest::mouseClick(Find("InputText"), Qt::LeftButton);
  EXPECT_EQ(TextOf("InputText"), "");
  QTest::keyClick(Find("InputText"), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(program_->w.Tarnwick.InputText.text, "io91wm");
}

TEST_F(Windows, TakeTypingWhereNothingElseWantsIt) {
  Type("io91wm");
  Find("LocText")->setFocus();
  QTest::keyClick(Find("LocText"), Qt::Key_S, Qt::AltModifier);  // Set as Home is disabled
  EXPECT_EQ(TextOf("InputText"), "io91wm");
  QTest::keyClicks(Find("LocText"), "x");
  EXPECT_TRUE(TextOf("InputText").ends_with("x"));
  QTest::keyClick(Find("InputText"), Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(TextOf("InputText").ends_with("x"));
}

// Enter opens the port, and the window says why the first text opens none.
TEST_F(Windows, OpenThePortByEnter) {
  Click("UseNMEA");
  auto* message = Find<QPlainTextEdit>("Text1", &PortSetUp());
  EXPECT_NE(message->placeholderText(), "");
  QTest::keyClick(Find<QComboBox>("CPort", &PortSetUp())->lineEdit(), Qt::Key_Return);
  EXPECT_EQ(message->toPlainText(), "COM PORT FAIL");
  EXPECT_GE(PortSetUp().width(),
            PortSetUp().fontMetrics().horizontalAdvance(PortSetUp().windowTitle()) + 100);
  EXPECT_FALSE(PortSetUp().windowFlags() & Qt::WindowMinMaxButtonsHint);
}

// By the arrow keys every entry is reached, the first as well while another text stands there.
TEST_F(Windows, ReachTheFirstPortByDown) {
  auto* ports = Find<QComboBox>("CPort", &PortSetUp());
  program_->runner.Run([](Workspace& w) {
    w.SetUpCom.CPort.items = {"COM9", "COM18"};
    w.SetUpCom.CPort.text = "7";
  });
  EXPECT_EQ(ports->currentText(), "7");
  QTest::keyClick(ports, Qt::Key_Down);
  EXPECT_EQ(program_->w.SetUpCom.CPort.text, "COM9");
  QTest::keyClick(ports, Qt::Key_Down);
  EXPECT_EQ(program_->w.SetUpCom.CPort.text, "COM18");
  program_->runner.Run([](Workspace& w) { w.SetUpCom.CPort.items = {"COM9", "COM25"}; });
  EXPECT_EQ(ports->itemText(1), "COM25") << "as many ports, but others";
  EXPECT_TRUE(ports->itemData(1, Qt::ToolTipRole).toString().endsWith("rfcomm0"));
  EXPECT_EQ(ports->currentText(), "COM18");
}

// Wherever the main window was left, the others are on the screen.
TEST_F(Windows, StandOnTheScreenWhereverTheMainWindowIs) {
  const QRect screen = program_->mainWindow.screen()->availableGeometry();
  for (const QPoint corner : {screen.topLeft(), screen.center(), screen.bottomRight()}) {
    Restart();
    program_->w.Tarnwick.left = static_cast<float>(corner.x()) * kTwipsPerPixel;
    program_->w.Tarnwick.top = static_cast<float>(corner.y()) * kTwipsPerPixel;
    program_->runner.Refresh();
    Type("IO91WM");
    Enter();
    Click("SetHome");
    program_->runner.Run(OpenResults);
    Click("UseNMEA");
    Wait(100);  // the frames are there
    const QRect main = program_->mainWindow.geometry();
    const QRect pointing = Pointing().geometry();
    EXPECT_TRUE(screen.intersects(main));
    EXPECT_TRUE(screen.contains(pointing));
    EXPECT_TRUE(screen.contains(PortSetUp().geometry()));
    // This one is as wide as the screen, without its frame.
    EXPECT_LE(Results().frameGeometry().left(), screen.left());
    EXPECT_TRUE(screen.contains(Results().geometry().center()));
    EXPECT_TRUE(corner != screen.topLeft() || !pointing.intersects(main));
  }
}

// Nothing overlaps or is cut at any font, and a dark desktop leaves the fields readable.
TEST_F(Windows, FitTheirTextsInEveryFontOnADarkDesktop) {
  const QFont font = QApplication::font();
  const QPalette palette = QApplication::palette();
  for (const int points : {9, 12, 16}) {
    QFont larger = font;
    larger.setPointSize(points);
    QApplication::setFont(larger);
    QApplication::setPalette(QPalette(QColor(40, 40, 40)));
    Restart();
    Type("51 30 15 N 1 15 30 W");
    Enter();
    Click("SetHome");
    Click("GenList");
    Click("UseNMEA");
    program_->runner.Run(OpenResults);
    QTest::qWait(1);
    for (const FramedWindow* window : program_->VisibleWindows()) {
      for (auto* widget : window->findChildren<QWidget*>(QRegularExpression("."))) {
        if (!widget->isVisible()) continue;
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
            << points << widget->objectName().toStdString();
        EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()))
            << points << widget->objectName().toStdString();
      }
      EXPECT_LE(window->width(), window->screen()->availableGeometry().width()) << points;
      EXPECT_LE(window->height(), window->screen()->availableGeometry().height()) << points;
    }
    EXPECT_LT(Find("LocDatabase")->palette().color(QPalette::Text).lightness(), 64);
    EXPECT_GT(Find("LocDatabase")->palette().color(QPalette::Base).lightness(), 192);
    EXPECT_GT(program_->mainWindow.palette().color(QPalette::Window).lightness(), 192);
  }
  QApplication::setFont(font);
  QApplication::setPalette(palette);
}

}  // namespace
