// The keys that work in every window.
#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QTextBrowser>

#include "program_test.h"

namespace {

class Keys : public ProgramTest {
 protected:
  Keys() {
    Start("io91wm");
    Click("SetHome");
  }
  // Returns the widget with the focus in a window of the program.
  static QWidget* FocusIn(FramedWindow& window) {
    window.BringToFront();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    return window.focusWidget();
  }
};

// A text browser is the desktop's browser here. A build without pandoc has the text alone.
TEST_F(Keys, F1OpensTheManual) {
  QTextBrowser browser;
  QDesktopServices::setUrlHandler("file", &browser, "setSource");
  for (FramedWindow* window : program_->VisibleWindows()) {
    browser.setSource({});
    QTest::keyClick(FocusIn(*window), Qt::Key_F1);
    EXPECT_TRUE(browser.source().path().contains("manual")) << window->windowTitle().toStdString();
    EXPECT_TRUE(QFileInfo(browser.source().toLocalFile()).isFile());
  }
  QDesktopServices::unsetUrlHandler("file");
}

TEST_F(Keys, AHeldAccessKeyActsOnce) {
  QWidget* focused = FocusIn(Main());
  int presses = 0;
  QObject::connect(Find<QPushButton>("SetHome"), &QPushButton::pressed, [&presses] { ++presses; });
  for (const bool isRepeat : {false, true, true}) {
    qt_sendShortcutOverrideEvent(focused, 0, Qt::Key_S, Qt::AltModifier, "s", isRepeat);
    QTest::qWait(150);  // a press by an access key takes a tenth of a second
  }
  EXPECT_EQ(presses, 1);
}

TEST_F(Keys, TypingInThePointingWindowIsForTheInputBox) {
  QWidget* focused = FocusIn(Pointing());
  QTest::keyClicks(focused, "jo01aa");
  EXPECT_EQ(program_->w.Tarnwick.InputText.text, "jo01aa");
  QTest::keyClick(focused, Qt::Key_Return);
  EXPECT_EQ(program_->w.BearingCalc.Ipt.text, "JO01AA");
}

}  // namespace
