// The keys that work in every window.
#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QtTest>

#include "platform/qt/application.h"

namespace {

class Keys : public testing::Test {
 protected:
  Keys() {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home_.filePath("config"));
    qputenv("XDG_DATA_HOME", home_.filePath("data").toUtf8());
    program_.Start("io91wm");
    SetHome()->click();
  }
  QPushButton* SetHome() { return program_.mainWindow.findChild<QPushButton*>("SetHome"); }
  // Returns the widget with the focus in a window of the program.
  static QWidget* FocusIn(FramedWindow& window) {
    window.BringToFront();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    return window.focusWidget();
  }

  QTemporaryDir home_;
  Application program_;
};

// A text browser is the desktop's browser here. A build without pandoc has the text alone.
TEST_F(Keys, F1OpensTheManual) {
  QTextBrowser browser;
  QDesktopServices::setUrlHandler("file", &browser, "setSource");
  for (FramedWindow* window : program_.VisibleWindows()) {
    browser.setSource({});
    QTest::keyClick(FocusIn(*window), Qt::Key_F1);
    EXPECT_TRUE(browser.source().path().contains("manual")) << window->windowTitle().toStdString();
    EXPECT_TRUE(QFileInfo(browser.source().toLocalFile()).isFile());
  }
  QDesktopServices::unsetUrlHandler("file");
}

TEST_F(Keys, AHeldAccessKeyActsOnce) {
  QWidget* focused = FocusIn(program_.mainWindow);
  int presses = 0;
  QObject::connect(SetHome(), &QPushButton::pressed, [&presses] { ++presses; });
  for (const bool isRepeat : {false, true, true}) {
    qt_sendShortcutOverrideEvent(focused, 0, Qt::Key_S, Qt::AltModifier, "s", isRepeat);
    QTest::qWait(150);  // a press by an access key takes a tenth of a second
  }
  EXPECT_EQ(presses, 1);
}

TEST_F(Keys, TypingInThePointingWindowIsForTheInputBox) {
  QWidget* focused = FocusIn(program_.WindowOf(WindowName::BearingCalc));
  QTest::keyClicks(focused, "jo01aa");
  EXPECT_EQ(program_.w.Tarnwick.InputText.text, "jo01aa");
  QTest::keyClick(focused, Qt::Key_Return);
  EXPECT_EQ(program_.w.BearingCalc.Ipt.text, "JO01AA");
}

}  // namespace
