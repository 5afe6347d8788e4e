// The real windows under a user who does anything at all.
#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <iostream>
#include <random>

#include "platform/desktop/qt_text.h"
#include "program_test.h"
#include "workspace/record/control_names.h"

namespace {

QStringList complaints;

void Complain(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  // That a plug-in without a screen has no window manager is no complaint.
  const bool isPlugin = text.startsWith("This plugin does not support");
  if (type != QtDebugMsg && type != QtInfoMsg && !isPlugin) complaints << text;
}

const char* const kTexts[] = {
    "io91wm",   "TQ3080", "51 30N 1 15W", "",           "hill",
    "90N 180E", "~",      "9d99",         "SU12346E12", "x\xC3\xA9\xF0\x9F\x98\x80\n2"};
// Nothing but these can become the name of a listing, with what keys make of it: no character of
// kKeys leads out of the folder.
const char* const kFiles[] = {"c:\\geog\\List.txt", "c:\\geog", "/dev/full", "",
                              "c:\\geog\\sites.DAT"};
constexpr int kKeys[] = {Qt::Key_A,      Qt::Key_Q,     Qt::Key_1,        Qt::Key_8,
                         Qt::Key_Space,  Qt::Key_Minus, Qt::Key_Tab,      Qt::Key_Backtab,
                         Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape,   Qt::Key_Backspace,
                         Qt::Key_Delete, Qt::Key_Home,  Qt::Key_End,      Qt::Key_Left,
                         Qt::Key_Right,  Qt::Key_Up,    Qt::Key_PageDown, Qt::Key_Down,
                         Qt::Key_U,      Qt::Key_L,     Qt::Key_S,        Qt::Key_M};

class RandomActions : public ProgramTest {
 protected:
  RandomActions() {
    Write("xdg-open", "#!/bin/sh\n");
    QFile::setPermissions(home_.filePath("xdg-open"), QFile::ReadOwner | QFile::ExeOwner);
    QDir::setCurrent(home_.path());
    // Without pseudo terminals there is no receiver.
    if (unlockpt(receiver_) == 0) QFile::link(ptsname(receiver_), home_.filePath("ttyUSB0"));
    onMessage_ = [](QMessageBox&) {};
    qInstallMessageHandler(Complain);
  }
  ~RandomActions() override {
    qInstallMessageHandler(nullptr);
    QDir::setCurrent("/");
    close(receiver_);
  }

  int Below(auto count) { return static_cast<int>(random_() % static_cast<std::size_t>(count)); }
  auto OneOf(const auto& table) { return table[static_cast<std::size_t>(Below(std::size(table)))]; }

  void StartAgain() {
    Start();
    InstallSites();
    ended_ = false;
    program_->onEnd = [this] { ended_ = true; };
  }
  FramedWindow* AnyWindow() {  // most often the main window, because the others are hidden
    FramedWindow* window = &program_->WindowOf(static_cast<WindowName>(Below(4)));
    return window->isVisible() ? window : &Main();
  }

  QString ClickAnywhere() {
    QList<QWidget*> widgets = AnyWindow()->findChildren<QWidget*>();
    widgets.removeIf([](QWidget* widget) { return !widget->isVisible() || !widget->isEnabled(); });
    QWidget* widget = OneOf(widgets.toVector());
    const QPoint at(Below(widget->width() + 1), Below(widget->height() + 1));
    const QString did = "click " + widget->objectName();
    Below(5) == 0 ? QTest::mouseDClick(widget, Qt::LeftButton, {}, at)
                  : QTest::mouseClick(widget, Qt::LeftButton, {}, at);
    return did;
  }
  QString PressKey() {
    QWidget* widget = QApplication::activePopupWidget();
    if (widget == nullptr) widget = AnyWindow()->focusWidget();
    if (widget == nullptr) widget = &Main();
    const int key = OneOf(kKeys);
    constexpr Qt::KeyboardModifier kModifiers[] = {Qt::NoModifier, Qt::NoModifier,
                                                   Qt::ShiftModifier, Qt::AltModifier};
    const QString did = "key " + QString::number(key) + " in " + widget->objectName();
    QTest::keyClick(widget, static_cast<Qt::Key>(key), OneOf(kModifiers));
    return did;
  }
  QString TypeText() {
    const auto fields = AnyWindow()->findChildren<QLineEdit*>();
    if (fields.isEmpty()) return {};
    QLineEdit* field = OneOf(fields);
    if (field->isReadOnly() || !field->isVisible()) return {};
    const QString name = field->objectName();
    const bool isFile = name == "ListFileName" || name == "LocDatabase";
    field->setText(QString::fromUtf8(isFile ? OneOf(kFiles) : OneOf(kTexts)));
    const QString did = "type " + field->text() + " in " + name;
    QTest::keyClick(field, Qt::Key_Return);
    return did;
  }
  QString HandleWindow() {
    FramedWindow* window = AnyWindow();
    const int how = Below(window == &Main() ? 20 : 5);
    const QString did = QString("window %1 %2").arg(window->objectName()).arg(how);
    if (how == 0) window->close();
    if (how == 1) window->showMinimized();
    if (how == 2) window->showNormal();
    if (how == 3) window->move(Below(3'000) - 1'500, Below(3'000) - 1'500);
    if (how > 3) window->resize(Below(1'500), Below(1'500));
    return did;
  }
  QString Act() {
    const int what = Below(100);
    if (what < 45) return ClickAnywhere();
    if (what < 70) return PressKey();
    if (what < 85) return TypeText();
    if (what < 93) return HandleWindow();
    static constexpr char kSentence[] =
        "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n";
    [[maybe_unused]] const auto written = write(receiver_, kSentence, sizeof kSentence - 1);
    return "receive";
  }

  // Requires that the windows show the record.
  void ExpectShown(FramedWindow& window, const auto& record) {
    EXPECT_EQ(window.isVisible(), record.visible) << window.objectName().toStdString();
    EachControl(record, [&](const char* name, const auto& control) {
      auto* widget = window.findChild<QWidget*>(name);
      EXPECT_EQ(widget->isHidden(), !control.visible) << name;
      if constexpr (requires { control.enabled; }) {
        EXPECT_EQ(widget->isEnabled(), control.enabled) << name;
      }
      if constexpr (requires { control.checked; }) {
        EXPECT_EQ(widget->property("checked").toBool(), control.checked);
      }
      const auto text = [&] {
        if constexpr (requires { control.text; }) return ToQt(control.text);
        if constexpr (requires { control.caption; }) return ToQt(control.caption);
        return TextOf(widget);
      }();
      EXPECT_EQ(TextOf(widget), text) << name;
    });
  }

  int receiver_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
  std::mt19937 random_{1};
  bool ended_ = false;
};

TEST_F(RandomActions, NeverUpsetTheWindows) {
  const int actions = qEnvironmentVariableIsSet("TARNWICK_DEEP") ? 20'000 : 1'500;
  QStringList did;
  qint64 slowest = 0;
  StartAgain();
  for (int i = 0; i < actions && !HasFailure(); ++i) {
    QElapsedTimer timer;
    timer.start();
    did << Act();
    QApplication::processEvents();
    EXPECT_FALSE(program_->runner.IsBusy()) << "a window is stuck";
    slowest = std::max(slowest, timer.elapsed());
    if (ended_) StartAgain();
    EachWindow(program_->w, [this](WindowName name, const char* /*title*/, const auto& record) {
      ExpectShown(program_->WindowOf(name), record);
    });
    EXPECT_EQ(complaints, QStringList()) << complaints.join('\n').toStdString();
  }
  EXPECT_LT(slowest, 20'000);
  if (HasFailure()) std::cout << did.mid(did.size() - 30).join('\n').toStdString() << '\n';
}

}  // namespace
