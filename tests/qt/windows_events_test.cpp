// What the user does with the mouse: every row of the event table, edits, message boxes, lists.
#include <QApplication>
#include <QComboBox>
#include <QListView>
#include <set>

#include "platform/desktop/qt_text.h"
#include "program_test.h"
#include "workspace/record/control_names.h"

namespace {

class WindowsEvents : public ProgramTest {
 protected:
  WindowsEvents() { Start(); }

  // A click in the list, or a double click; the last row is the space beside the entries.
  void Press(int row, Qt::MouseButton button = Qt::LeftButton, bool twice = false) {
    auto* list = Find<QListView>("PR");
    const QRect entry = list->visualRect(list->model()->index(row, 0));
    const QPoint at = entry.isValid() ? entry.center() : list->viewport()->rect().bottomRight();
    QTest::mouseClick(list->viewport(), button, {}, at);
    if (twice) QTest::mouseDClick(list->viewport(), button, {}, at);
  }
};

// One session with the mouse, in which every event happens. Maps are in a test of their own.
TEST_F(WindowsEvents, EveryEventRunsItsCommand) {
  InstallSites();
  std::set<std::string> done = {"Gmap", "OSMap"};
  const auto click = [&](const char* name) {
    Click(name);
    done.insert(name);
  };
  const auto close = [&](FramedWindow& window) {
    EXPECT_FALSE(window.close()) << "the command hides the window, not Qt";
    EXPECT_FALSE(window.isVisible());
    done.insert(window.objectName().toStdString());
  };
  Type("snow");
  click("Lookup");
  Press(0, Qt::LeftButton, true);
  done.insert("PR");
  EXPECT_EQ(Text("InputText"), "Yr Wyddfa (Snowdon)   SH60985437");
  EXPECT_EQ(Text("NGRText"), "SH60985437");
  click("InputText");
  EXPECT_EQ(Text("InputText"), "");
  EXPECT_FALSE(Results().isVisible());
  Type("ben");
  Click("Lookup");
  Press(1);
  click("OK");
  EXPECT_EQ(Text("InputText"), "Ben Alder   NN496718");
  close(Results());
  Type("io91wm");
  click("InputText");
  Type("51.5N 1.25W");
  click("FindIt");
  EXPECT_EQ(Text("LocText"), "IO91JM00AA");
  click("SetHome");
  EXPECT_TRUE(Pointing().isVisible());
  close(Pointing());
  const std::string before = Text("LLText");
  click("LLfmt");
  EXPECT_NE(Text("LLText"), before);

  click("GenList");
  click("ShowAll");
  // They differ if the test runs at midnight.
  const QString dayBefore = QDate::currentDate().toString("\r\nyyyy/MM/dd\r\n");
  EXPECT_EQ(Text("ListFileName"), "");
  onMessage_ = [](QMessageBox&) {};  // there may be no viewer
  for (const auto& [button, file] :
       {std::pair("MakeList", "c:\\geog\\All.txt"), {"LocSites", "c:\\geog\\Locals.txt"}}) {
    Find<QLineEdit>("ListFileName")->setText(file);
    click(button);
    EXPECT_TRUE(std::filesystem::exists(program_->desktop.PathToRead(file))) << button;
  }
  const QString listing = Content("data/tarnwick/drive_c/geog/All.txt");
  const QString dayAfter = QDate::currentDate().toString("\r\nyyyy/MM/dd\r\n");
  EXPECT_TRUE(listing.contains(dayBefore) || listing.contains(dayAfter)) << listing.toStdString();
  click("UseNMEA");
  EXPECT_TRUE(PortSetUp().isVisible());
  close(PortSetUp());
  Click("UseNMEA");
  EXPECT_TRUE(PortSetUp().isVisible()) << "not a pause of what never began";
  EXPECT_EQ(Text("Baud"), "9600") << "the window has kept its texts";
  click("Command1");
  EXPECT_EQ(Text("Text1"), "COM PORT FAIL");
  bool ended = false;
  program_->onEnd = [&] { ended = true; };
  close(Main());
  EXPECT_TRUE(ended);

  EachWindow(program_->w, [&](WindowName window, const char* title, auto& record) {
    EXPECT_TRUE(done.contains(title)) << title;
    EachControl(record, [&](const char* name, auto&) {
      if (FindEvent(window, name, UserAction::Click) != nullptr ||
          FindEvent(window, name, UserAction::DoubleClick) != nullptr) {
        EXPECT_TRUE(done.contains(name)) << name;
      }
    });
  });
}

// A double click does what OK does, beside the entries as well, where it leaves what is selected.
TEST_F(WindowsEvents, PicksAnEntryByADoubleClick) {
  const struct {
    int pressed, twice;
    Qt::MouseButton button;
    const char* picked;
  } rows[] = {{1, 1, Qt::LeftButton, "IO91WN"},
              {0, 0, Qt::RightButton, "typed"},
              {1, -1, Qt::LeftButton, "IO91WN"},
              {-1, -1, Qt::LeftButton, ""}};
  InstallSites();
  for (const auto& [pressed, twice, button, picked] : rows) {
    List({"IO91WM", "IO91WN"});
    Type("typed");
    Press(pressed, button);
    Press(twice, button, true);
    EXPECT_EQ(Text("InputText"), picked) << pressed << " " << twice;
    Results().close();
  }
  program_->runner.Run([](Workspace& w) { w.ShowList.PR.items.emplace_back("IO91WM"); });
  program_->runner.Run([](Workspace& w) { w.ShowList.PR.index = 0; });
  EXPECT_EQ(Find<QListView>("PR")->currentIndex().row(), 0) << "selected by a command";
}

// The second press of a double click, and other buttons of the mouse, are no clicks.
TEST_F(WindowsEvents, TakesOneClickForADoubleClick) {
  Click("LLfmt");
  QTest::mouseDClick(Find("LLfmt"), Qt::LeftButton);
  QTest::mouseRelease(Find("LLfmt"), Qt::LeftButton);
  EXPECT_EQ(program_->w.LLFormat, 1);
  Type("io91wm");
  QTest::mouseClick(Find("InputText"), Qt::RightButton);
  if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
  QTest::mousePress(Find("InputText"), Qt::LeftButton);
  QTest::mouseRelease(Find("InputText"), Qt::LeftButton, {}, {10, 500});
  EXPECT_EQ(Text("InputText"), "io91wm");
  Click("InputText");
  EXPECT_EQ(Text("InputText"), "");
  QTest::keyClick(Find("InputText"), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Text("InputText"), "io91wm") << "undone";
  EXPECT_EQ(program_->w.Tarnwick.InputText.text, "io91wm");
}

TEST_F(WindowsEvents, OnlyFieldsThatAreMeantForItTakeTyping) {
  SetHome("NN166712");
  Click("GenList");
  Click("UseNMEA");
  const auto check = [this](FramedWindow& window, auto& record) {
    Activate(window);
    EachControl(record, [&](const char* name, auto& control) {
      if constexpr (requires { control.readOnly; }) {
        const std::string before = Text(name);
        Find(name)->setFocus();
        QTest::keyClick(Find(name), Qt::Key_7);
        EXPECT_EQ(Text(name) == before, control.readOnly) << name;
        EXPECT_EQ(control.text, Text(name)) << name;
      }
    });
  };
  check(Main(), program_->w.Tarnwick);
  check(Pointing(), program_->w.BearingCalc);
  check(PortSetUp(), program_->w.SetUpCom);
}

// Screen readers and input methods set texts without keys; other character sets are replaced.
TEST_F(WindowsEvents, TakesEditsWhateverTheirSource) {
  const struct {
    const char *field, *edit, *taken;
  } rows[] = {{"InputText", "51\u203230\u2033N \u22121\U0001F600\u00E9", "51'30\"N -1?\xE9"},
              {"InputText", "\r\nNN166712\r\nNN166713", "NN166712"},  // cells of a table
              {"LocDatabase", "/tmp/elsewhere.dat", "/tmp/elsewhere.dat"}};
  for (const auto& [field, edit, taken] : rows) {
    Find<QLineEdit>(field)->setText(QString::fromUtf8(edit));
    EXPECT_EQ(FromQt(Find<QLineEdit>(field)->text()), taken) << edit;
    const MainWindow& main = program_->w.Tarnwick;
    EXPECT_EQ(*field == 'I' ? main.InputText.text : main.LocDatabase.text, taken) << edit;
  }
  auto* input = Find<QLineEdit>("InputText");
  input->setText(QString::fromUtf8("\U0001F600ab"));
  input->setCursorPosition(1);
  input->insert(QString::fromUtf8("\U0001F600"));
  EXPECT_EQ(Text("InputText"), "??ab");
  EXPECT_EQ(input->cursorPosition(), 2);
  Find<QComboBox>("Baud")->setEditText("115200");
  EXPECT_EQ(program_->w.SetUpCom.Baud.text, "115200");
  // A command that restores the text before the edit also shows it.
  program_->runner.Run([](Workspace& w) { w.SetUpCom.Baud.text = "9600"; });
  EXPECT_EQ(Text("Baud"), "9600");
}

Qt::CursorShape Cursor() {
  const QCursor* cursor = QApplication::overrideCursor();
  return cursor != nullptr ? cursor->shape() : Qt::ArrowCursor;
}

// While the box is open the record is on screen and no command starts.
TEST_F(WindowsEvents, ShowsTheRecordUnderAMessageBox) {
  Type("nowhere");
  const std::string message =
      MessageOf([&] { Enter(); },
                [&] {
                  EXPECT_EQ(QApplication::activeModalWidget()->windowTitle(), kProgramTitle);
                  EXPECT_EQ(Cursor(), Qt::ArrowCursor);
                  EXPECT_FALSE(Find("SetHome")->isEnabled());
                  Find<QPushButton>("LLfmt")->click();
                  Main().close();
                });
  EXPECT_EQ(message, "Site datbase not found");
  const auto change = [](Workspace& w) {
    w.Tarnwick.LLText.text = "changed";
    w.platform.MsgBox("");
  };
  MessageOf([&] { program_->runner.Run(change); }, [&] { EXPECT_EQ(Text("LLText"), "changed"); });
  EXPECT_EQ(program_->w.LLFormat, 0);
  EXPECT_TRUE(Main().isVisible());
}

Qt::CursorShape cursorOfCommand;

TEST_F(WindowsEvents, ShowsAWaitCursorWhileItReadsTheDatabase) {
  Event event{WindowName::Tarnwick, "", UserAction::Click, [](Workspace&) {
                cursorOfCommand = Cursor();
                throw std::bad_alloc();
              }};
  for (const bool reads : {false, true}) {
    event.readsDatabase = reads;
    EXPECT_THROW(program_->runner.Run(event), std::bad_alloc);
    EXPECT_EQ(cursorOfCommand, reads ? Qt::WaitCursor : Qt::ArrowCursor);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_FALSE(program_->runner.IsBusy());
  }
}

}  // namespace
