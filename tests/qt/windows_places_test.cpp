// Where the windows are and how large, and what the next start brings back.
#include <QComboBox>
#include <QScreen>

#include "platform/qt/framed_window.h"
#include "program_test.h"
#include "sites/lookup/lookup.h"

namespace {

class WindowsPlaces : public ProgramTest {
 protected:
  WindowsPlaces() { Start(); }

  // Puts the main window somewhere before it has appeared.
  void StartAt(QPoint corner) {
    Start();
    program_->w.Tarnwick.left = static_cast<float>(corner.x()) * kTwipsPerPixel;
    program_->w.Tarnwick.top = static_cast<float>(corner.y()) * kTwipsPerPixel;
    program_->runner.Refresh();
    QTest::qWait(1);
  }
  void Exit() {
    Main().close();
    EXPECT_FALSE(Main().isVisible());
  }
  const QRect screen_ = QGuiApplication::primaryScreen()->availableGeometry();
};

TEST_F(WindowsPlaces, NextStartBringsBackWhatWasStored) {
  Find<QLineEdit>("LocDatabase")->setText("/tmp/a, b.dat");
  Find<QComboBox>("Baud")->setEditText("19200");
  Find<QComboBox>("CPort")->setEditText("COM12");
  SetHome("io91wm");
  MoveByUser(Main(), {120, 90});
  Exit();
  Start();
  EXPECT_EQ(Text("LocText"), "") << "the home station is stored on request";
  Use("io91wm");
  Click("SetHome");
  Click("SaveOnExit");
  for (int start = 0; start < 3; ++start) {
    Exit();
    Start();
    EXPECT_EQ(Main().pos(), QPoint(120, 90)) << start;
    EXPECT_EQ(program_->w.Tarnwick.left, 1800);
    EXPECT_EQ(Text("LocText"), "IO91WM44MM") << start;
    EXPECT_TRUE(Pointing().isVisible());
    EXPECT_EQ(Text("LocDatabase"), "/tmp/a, b.dat");
    EXPECT_EQ(Text("Baud"), "19200");
    EXPECT_EQ(Text("CPort"), "COM12");
    EXPECT_EQ(Main().windowTitle(), "Sites, Distances and Bearings");
    Find<QLineEdit>("LocDatabase")->setText("/tmp/a, b.dat");
  }
  Start("51 30 15 N 1 15 30 W");  // as given on the command line
  EXPECT_EQ(Text("InputText"), "51 30 15 N 1 15 30 W");
  EXPECT_EQ(Text("NGRText"), "SU51574 78620");
}

// The record contains the size that the logic or the user chose, not the one that the layout needs.
TEST_F(WindowsPlaces, SizeInTheRecordIsTheUsers) {
  SetHome("io91wm");
  Click("GenList");
  QTest::qWait(1);
  EXPECT_EQ(program_->w.Tarnwick.height, 6780);
  EXPECT_EQ(program_->w.Tarnwick.top, 100) << "not a whole number of pixels";
  Main().windowHandle()->resize(800, 700);
  QTest::qWait(1);
  EXPECT_EQ(program_->w.Tarnwick.width, 12000);
  EXPECT_EQ(program_->w.Tarnwick.height, 10500);
}

// A window system reports other places and sizes while a window is minimised or maximised.
TEST_F(WindowsPlaces, MovesOfAMinimisedWindowAreNotTheUsers) {
  MoveByUser(Main(), {120, 90});
  for (const Qt::WindowState state : {Qt::WindowMinimized, Qt::WindowMaximized}) {
    Main().setWindowState(state);
    QTest::qWait(1);
    MoveByUser(Main(), {-500, -400});
    Main().windowHandle()->resize(901, 801);
    QTest::qWait(1);
    EXPECT_EQ(program_->w.Tarnwick.left, 1800) << state;
    EXPECT_EQ(program_->w.Tarnwick.top, 1350) << state;
    EXPECT_NE(program_->w.Tarnwick.width, 901 * kTwipsPerPixel) << state;
    EXPECT_NE(program_->w.Tarnwick.height, 801 * kTwipsPerPixel) << state;
  }
}

// A position that a window manager chose after a request is not a change by the user.
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
    EXPECT_EQ(origin.IsUserChange(reported), isUsers) << requested << " " << reported;
  }
  origin.Request(6);
  origin.EndRequest();
  EXPECT_TRUE(origin.IsUserChange(7));
}

// The Pointing window does not overlap the main window if the screen is large enough, unless the
// user moved it there. The main window keeps the keyboard focus.
TEST_F(WindowsPlaces, PointingWindowIsClearOfTheMainWindow) {
  const QSize size = Main().size();
  const struct {
    QPoint main;
    bool fits, fitsWithListing;
  } rows[] = {{{0, 0}, true, true},
              {{60, 180}, true, false},  // below, until the main window grows
              {{10, screen_.height() - size.height()}, true, true}};
  for (const auto& [main, fits, fitsWithListing] : rows) {
    Start();
    MoveByUser(Main(), main);
    program_->w.BearingCalc.left = program_->w.Tarnwick.left + 1500;
    program_->w.BearingCalc.top = program_->w.Tarnwick.top + 1500;
    SetHome("io91wm");
    EXPECT_TRUE(Pointing().testAttribute(Qt::WA_ShowWithoutActivating));
    const auto overlaps = [this] {
      return Pointing().frameGeometry().intersects(Main().frameGeometry());
    };
    EXPECT_TRUE(Eventually([&] { return overlaps() != fits; })) << main.y();
    Click("GenList");
    QTest::qWait(1);
    EXPECT_EQ(overlaps(), !fitsWithListing) << main.y();
    EXPECT_TRUE(screen_.contains(Pointing().frameGeometry()));
    if (!fitsWithListing) {
      EXPECT_EQ(Pointing().frameGeometry().bottomRight(), screen_.bottomRight());
    }
    MoveByUser(Pointing(), main + QPoint(50, 50));
    Main().resize(size);
    Pointing().close();
    Click("InputText");
    SetHome("io91wm");
    EXPECT_EQ(Pointing().pos(), main + QPoint(50, 50)) << "the user's place";
  }
}

// Wherever the main window was left, the others are on the screen.
TEST_F(WindowsPlaces, WindowsAreOnTheScreenWhereverTheMainWindowIs) {
  for (const QPoint corner : {screen_.topLeft(), screen_.center(), screen_.bottomRight(),
                              QPoint(-5'000, -5'000), QPoint(9'000, 9'000)}) {
    StartAt(corner);
    SetHome("IO91WM");
    program_->runner.Run(OpenResults);
    Click("UseNMEA");
    EXPECT_TRUE(Eventually([&] { return screen_.contains(PortSetUp().frameGeometry()); }));
    EXPECT_TRUE(Eventually([&] { return screen_.contains(Pointing().frameGeometry()); }));
    const QRect title(Main().frameGeometry().topLeft(), QSize(Main().width(), 20));
    EXPECT_GE((title & screen_).width(), 80) << "a part of the title bar";
    EXPECT_EQ((title & screen_).height(), 20);
    // This one is as wide as the screen, without its frame.
    EXPECT_LE(Results().frameGeometry().left(), screen_.left());
    EXPECT_TRUE(screen_.contains(Results().geometry().center()));
    EXPECT_TRUE(corner != screen_.topLeft() ||
                !Pointing().geometry().intersects(Main().geometry()));
  }
}

}  // namespace
