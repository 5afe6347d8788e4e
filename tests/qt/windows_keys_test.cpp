// What the user does with the keyboard, and what a screen reader says.
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QPlainTextEdit>

#include "platform/desktop/serial_device.h"
#include "program_test.h"
#include "workspace/events/main_window_layout.h"
#include "workspace/record/control_names.h"

namespace {

class WindowsKeys : public ProgramTest {
 protected:
  WindowsKeys() {
    Start();
    Activate(Main());
  }
  std::string Focus() { return QApplication::focusWidget()->objectName().toStdString(); }
};

TEST_F(WindowsKeys, TabGoesThroughTheControlsInReadingOrder) {
  SetHome("io91wm");
  Click("UseNMEA");
  program_->runner.Run([](Workspace& w) { w.Tarnwick.OSMap.enabled = true; });
  List({"IO91WM"});
  const struct {
    FramedWindow& window;
    const char* order;
  } rows[] = {{Main(),
               "InputText FindIt Lookup LocText NGRText EastNorth SetHome GenList Gmap OSMap "
               "UseNMEA LocSites LLText LLfmt SaveOnExit LocDatabase "},
              {Pointing(), "Ipt BearText BackBearText DistText UncertText "},
              {PortSetUp(), "CPort Baud Command1 Text1 "},
              {Results(), "PR OK "},
              {Main(),
               "MinDisttext MaxDistText FromBearText ToBearText Srchtext ListFileName ShowAll "
               "MakeList LocDatabase InputText LocText NGRText EastNorth Gmap OSMap UseNMEA "
               "LocSites LLText LLfmt SaveOnExit "}};
  for (const auto& [window, order] : rows) {
    Activate(window);
    if (*order == 'M') Click("GenList");
    const std::string first = Focus();
    std::string visited;
    do {
      visited += Focus() + " ";
      Key(Qt::Key_Tab);
    } while (Focus() != first && visited.size() < 500);
    EXPECT_EQ(visited, order);
    Key(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(visited.substr(0, visited.size() - 1).substr(visited.size() - 1 - Focus().size()),
              Focus())
        << "backwards";
  }
}

TEST_F(WindowsKeys, EnterPressesTheDefaultButtonAndSpaceTheFocusedOne) {
  Type("io91wm");
  QTest::keyClick(Find("LocDatabase"), Qt::Key_Enter);
  EXPECT_EQ(Text("LocText"), "IO91WM");
  auto* format = Find<QPushButton>("LLfmt");
  format->setFocus();
  EXPECT_FALSE(Find<QPushButton>("FindIt")->isDefault()) << "it would look as if Enter pressed it";
  Key(Qt::Key_Return);
  EXPECT_EQ(program_->w.LLFormat, 1);
  Key(Qt::Key_Space);
  EXPECT_EQ(program_->w.LLFormat, 2);
  Click("SetHome");
  EXPECT_EQ(Main().focusWidget(), format) << "a click leaves the focus alone";
  Find("GenList")->setFocus();
  QTest::keyClick(Find("GenList"), Qt::Key_Space);
  EXPECT_EQ(Main().focusWidget(), Find("MinDisttext")) << "where the next thing is done";
  EXPECT_EQ(Find<QLineEdit>("MinDisttext")->selectedText(), "0");
  EXPECT_TRUE(Find<QPushButton>("MakeList")->isDefault());
  QTest::keyClick(Find("InputText"), Qt::Key_Escape);
  EXPECT_TRUE(Main().isVisible());
  Click("InputText");
  EXPECT_TRUE(Find<QPushButton>("FindIt")->isDefault());
  Type("NN166712");
  for (const bool isHeld : {true, false}) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", isHeld);
    QApplication::sendEvent(Find("InputText"), &press);
    EXPECT_EQ(Text("NGRText").empty(), isHeld);
  }
  // When a command disables or hides a button, the focus does not move to another button.
  Find("FindIt")->setFocus();
  program_->runner.Run([](Workspace& w) { w.Tarnwick.FindIt.visible = false; });
  EXPECT_EQ(Main().focusWidget(), Find("InputText"));
}

// Enter opens the port too, in a window that is wide enough for its title.
TEST_F(WindowsKeys, EnterOpensThePort) {
  Click("UseNMEA");
  Activate(PortSetUp());
  Key(Qt::Key_Return);
  EXPECT_EQ(Text("Text1"), "COM PORT FAIL");
  QTest::keyClick(Find("Text1"), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(Find("Text1"), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "COM PORT FAIL");
  EXPECT_EQ(PortSetUp().windowTitle(), "GPS / NMEA  Setup");
  EXPECT_GE(PortSetUp().width(),
            PortSetUp().fontMetrics().horizontalAdvance(PortSetUp().windowTitle()) + 100);
  EXPECT_FALSE(PortSetUp().windowFlags() & Qt::WindowMinMaxButtonsHint);
}

// By the arrow keys every port is reached, the first as well while another text is in the box.
TEST_F(WindowsKeys, ReachesTheFirstPortByDown) {
  auto* ports = Find<QComboBox>("CPort");
  program_->runner.Run([](Workspace& w) {
    w.SetUpCom.CPort.items = {"COM9", "COM18"};
    w.SetUpCom.CPort.text = "7";
  });
  program_->runner.Run([](Workspace& w) { w.SetUpCom.visible = true; });
  EXPECT_EQ(Text("CPort"), "7");
  EXPECT_EQ(ports->lineEdit()->selectedText(), "7") << "typing replaces it";
  EXPECT_NE(Find<QPlainTextEdit>("Text1")->placeholderText(), "") << "7 is no port";
  for (const char* port : {"COM9", "COM18"}) {
    QTest::keyClick(ports, Qt::Key_Down);
    EXPECT_EQ(program_->w.SetUpCom.CPort.text, port);
  }
  program_->runner.Run([](Workspace& w) { w.SetUpCom.CPort.items = {"COM9", "COM25"}; });
  EXPECT_EQ(ports->itemText(1), "COM25") << "as many ports, but others";
  EXPECT_EQ(ports->itemData(1, Qt::ToolTipRole).toString(), DeviceOf(25));
  EXPECT_EQ(Text("CPort"), "COM18");
  EXPECT_EQ(Find<QPlainTextEdit>("Text1")->placeholderText(), "");
}

// A place, home, the next place, its figures copied, a listing: by keys alone.
TEST_F(WindowsKeys, NoMouseIsNeeded) {
  const auto typeAndEnter = [this](const char* text) {
    QTest::keyClicks(QApplication::focusWidget(), text);
    Key(Qt::Key_Return);
  };
  typeAndEnter("io91wm");
  Key(Qt::Key_S, Qt::AltModifier);
  ASSERT_TRUE(Eventually([this] { return Pointing().isActiveWindow(); }));
  Activate(Main());
  typeAndEnter("NN166712");
  EXPECT_EQ(Text("InputText"), "NN166712") << "what was used gives way";
  Key(Qt::Key_F6);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Pointing()));
  for (const auto& [field, figure] :
       {std::pair("BearText", "333.5"), {"BackBearText", "149.6"}, {"DistText", "666.814"}}) {
    Key(Qt::Key_Tab);
    EXPECT_EQ(Focus(), field);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), figure);
  }
  Key(Qt::Key_F6);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Main()));
  Key(Qt::Key_M, Qt::AltModifier);
  EXPECT_TRUE(Eventually([this] { return program_->w.Tarnwick.MakeList.visible; }));
  Key(Qt::Key_I, Qt::AltModifier);
  EXPECT_FALSE(Find("MaxDistText")->isVisible());
  EXPECT_EQ(Text("InputText"), "");
}

TEST_F(WindowsKeys, UnusedKeysAreTypedIntoTheInputBox) {
  Type("io91wm");
  Find("LocText")->setFocus();
  Key(Qt::Key_S, Qt::AltModifier);  // Set as Home is disabled
  EXPECT_EQ(Text("InputText"), "io91wm");
  QTest::keyClicks(Find("LocText"), "x");
  EXPECT_EQ(Text("InputText").back(), 'x');
  Key(Qt::Key_S, Qt::AltModifier);
  EXPECT_EQ(Text("InputText").back(), 'x');
}

// A text that Enter would make the home's name is never selected, however the box got the focus.
// The first arrow key has selected the first entry. The Pointing window is in front of the results.
TEST_F(WindowsKeys, PickedPlaceIsNotTypedOver) {
  struct RaiseCounter : QObject {
    int raised = 0;
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
      if (event->type() == QEvent::ZOrderChange) ++raised;
      return false;
    }
  } counter;
  InstallSites();
  auto* input = Find<QLineEdit>("InputText");
  SetHome("io91wm");
  Activate(Main());
  EXPECT_EQ(input->selectedText(), "IO91WM");
  List({"IO91WM", "IO91WN"});
  Pointing().installEventFilter(&counter);
  Key(Qt::Key_Down);
  Key(Qt::Key_Return);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Main()));
  EXPECT_GT(counter.raised, 0);
  EXPECT_EQ(input->text(), "IO91WM");
  const auto isUnselected = [input] {
    return input->selectedText().isEmpty() && input->cursorPosition() == input->text().size();
  };
  EXPECT_TRUE(isUnselected()) << "after a pick";
  Find("LocDatabase")->setFocus();
  Key(Qt::Key_Tab);
  EXPECT_TRUE(Eventually([&] { return QApplication::focusWidget() == input && isUnselected(); }));
  Enter();
  EXPECT_EQ(Text("BaseLocLbl").find("Home Station"), 0U);
  EXPECT_TRUE(isUnselected()) << "after Set as Home";
}

// A screen reader reads the name, then the description. A caption is the name of a label, a button
// or a check box; scripts find a control by its name in brackets.
TEST_F(WindowsKeys, EveryControlIsDescribed) {
  for (const QString field : {"", "[%1]"}) {
    const ScopedVariable variable("TARNWICK_FIELD_NAMES", field);
    if (field.isEmpty()) qunsetenv("TARNWICK_FIELD_NAMES");
    Start();
    program_->runner.Run(GenList_Click);
    const auto check = [&](const char* name, auto& control) {
      auto* widget = Find(name);
      const QString heard = QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
      if constexpr (requires { control.caption; }) {
        EXPECT_TRUE(widget->accessibleName().isEmpty()) << name;
      } else {
        EXPECT_TRUE(!heard.isEmpty() || widget->focusPolicy() == Qt::NoFocus) << name;
      }
      const QString brackets = field.isEmpty() ? "" : field.arg(name);
      if constexpr (requires { control.tip; }) {
        const QStringList parts{control.tip, brackets};
        EXPECT_EQ(widget->accessibleDescription(), parts.join(' ').trimmed());
        EXPECT_TRUE(widget->toolTip().contains(QString(control.tip).toHtmlEscaped()));
        EXPECT_EQ(widget->toolTip().isEmpty(), *control.tip == 0) << name;
      } else {
        EXPECT_EQ(widget->accessibleDescription().right(brackets.size()), brackets) << name;
      }
    };
    EachControl(program_->w.Tarnwick, check);
    EachControl(program_->w.BearingCalc, check);
    EachControl(program_->w.ShowList, check);
    EachControl(program_->w.SetUpCom, check);
    EXPECT_TRUE(Find("Ydim")->accessibleDescription().startsWith("Resolution, height"));
    EXPECT_EQ(Find<QComboBox>("Baud")->lineEdit()->accessibleName(), "Baud Rate");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&Main())->role(), QAccessible::Window);
  }
}

}  // namespace
