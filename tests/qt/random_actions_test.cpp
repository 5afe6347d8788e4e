// The real windows under a user who does anything at all.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>
#include <random>

#include "platform/desktop/qt_text.h"
#include "platform/qt/application.h"
#include "workspace/record/control_tables.h"

namespace {

QStringList complaints;

void Complain(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  // That a plug-in without a screen has no window manager is no complaint.
  const bool isPlugin = text.startsWith("This plugin does not support");
  if (type != QtDebugMsg && type != QtInfoMsg && !isPlugin) complaints << text;
}

const char* const kTexts[] = {"io91wm",     "TQ3080",   "51 30N 1 15W",
                              "",           "hill",     "1.25 W",
                              "~",          "io91wm4",  "9d99",
                              "SU12346E12", "90N 180E", "x\xC3\xA9\xC2\xB0\xF0\x9F\x98\x80\n2"};
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

class RandomActions : public testing::Test {
 protected:
  RandomActions() {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home_.path());
    qputenv("XDG_DATA_HOME", home_.path().toUtf8());
    qputenv("PATH", home_.path().toUtf8());
    QDir::setCurrent(home_.path());
    QFile viewer(home_.filePath("xdg-open"));
    EXPECT_TRUE(viewer.open(QIODevice::WriteOnly) && viewer.write("#!/bin/sh\n") > 0 &&
                viewer.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    EXPECT_TRUE(grantpt(receiver_) == 0 && unlockpt(receiver_) == 0 &&
                QFile::link(ptsname(receiver_), home_.filePath("ttyUSB0")));
    QObject::connect(&boxes_, &QTimer::timeout, [] {
      if (QWidget* box = QApplication::activeModalWidget()) box->close();
    });
    boxes_.start(1);
    qInstallMessageHandler(Complain);
  }
  ~RandomActions() override {
    qInstallMessageHandler(nullptr);
    qputenv("PATH", path_);
    QDir::setCurrent("/");
    close(receiver_);
  }

  int Below(std::size_t count) { return static_cast<int>(random_() % count); }
  template <class Table>
  auto OneOf(const Table& table) {
    return table[static_cast<std::size_t>(Below(std::size(table)))];
  }

  void Start() {
    program_ = std::make_unique<Application>();
    program_->desktop.serial.deviceFolder = home_.path();
    program_->onEnd = [this] { ended_ = true; };
    ended_ = false;
    program_->Start();
    QFile::copy(TARNWICK_SAMPLE, home_.filePath("tarnwick/drive_c/geog/Sites.dat"));
  }
  FramedWindow* AnyWindow() {
    FramedWindow* window =
        &program_->WindowOf(static_cast<WindowName>(Below(4)));  // most often a hidden one
    return window->isVisible() ? window : &program_->mainWindow;
  }

  void Click() {
    QList<QWidget*> widgets = AnyWindow()->findChildren<QWidget*>();
    widgets.removeIf([](QWidget* widget) { return !widget->isVisible() || !widget->isEnabled(); });
    QWidget* widget = widgets[Below(static_cast<std::size_t>(widgets.size()))];
    const QPoint at(Below(static_cast<std::size_t>(widget->width()) + 1),
                    Below(static_cast<std::size_t>(widget->height()) + 1));
    did_ << "click " + widget->objectName();
    if (Below(5) == 0)
      QTest::mouseDClick(widget, Qt::LeftButton, {}, at);
    else
      QTest::mouseClick(widget, Qt::LeftButton, {}, at);
  }
  void Key() {
    QWidget* widget = QApplication::activePopupWidget();
    if (widget == nullptr) widget = AnyWindow()->focusWidget();
    if (widget == nullptr) widget = &program_->mainWindow;
    const int key = OneOf(kKeys);
    constexpr Qt::KeyboardModifier kModifiers[] = {Qt::NoModifier, Qt::NoModifier,
                                                   Qt::ShiftModifier, Qt::AltModifier};
    did_ << "key " + QString::number(key) + " in " + widget->objectName();
    QTest::keyClick(widget, static_cast<Qt::Key>(key), OneOf(kModifiers));
  }
  void Type() {
    const auto fields = AnyWindow()->findChildren<QLineEdit*>();
    if (fields.isEmpty()) return;
    QLineEdit* field = fields[Below(static_cast<std::size_t>(fields.size()))];
    if (field->isReadOnly() || !field->isVisible()) return;
    const bool isFile =
        field->objectName() == "ListFileName" || field->objectName() == "LocDatabase";
    field->setText(QString::fromUtf8(isFile ? OneOf(kFiles) : OneOf(kTexts)));
    did_ << "type " + field->text() + " in " + field->objectName();
    QTest::keyClick(field, Qt::Key_Return);
  }
  void HandleWindow() {
    FramedWindow* window = AnyWindow();
    const int how = Below(window == &program_->mainWindow ? 20 : 5);
    did_ << "window " + window->objectName() + QString::number(how);
    if (how == 0) window->close();
    if (how == 1) window->showMinimized();
    if (how == 2) window->showNormal();
    if (how == 3) window->move(Below(3'000) - 1'500, Below(3'000) - 1'500);
    if (how > 3) window->resize(Below(1'500), Below(1'500));
  }
  void Receive() {
    static constexpr char kSentence[] =
        "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n";
    did_ << "receive";
    [[maybe_unused]] const auto written = write(receiver_, kSentence, sizeof kSentence - 1);
  }
  void Act() {
    const int what = Below(100);
    if (what < 45) return Click();
    if (what < 70) return Key();
    if (what < 85) return Type();
    if (what < 93) return HandleWindow();
    Receive();
  }

  // What is on screen is what the record says.
  void ExpectShown(FramedWindow& window, const auto& record) {
    EXPECT_EQ(window.isVisible(), record.visible) << window.objectName().toStdString();
    EachControl(record, [&](const char* name, const auto& control) {
      auto* widget = window.findChild<QWidget*>(name);
      EXPECT_EQ(widget->isHidden(), !control.visible) << name;
      if constexpr (requires { control.enabled; }) {
        EXPECT_EQ(widget->isEnabled(), control.enabled) << name;
      }
      QString text;
      if constexpr (requires { control.text; }) text = ToQt(control.text);
      if constexpr (requires { control.caption; }) text = ToQt(control.caption);
      if (const auto* edit = qobject_cast<QLineEdit*>(widget)) {
        EXPECT_EQ(edit->text(), text);
      }
      if (const auto* label = qobject_cast<QLabel*>(widget)) {
        EXPECT_EQ(label->text(), text);
      }
      if (const auto* box = qobject_cast<QComboBox*>(widget)) {
        EXPECT_EQ(box->currentText(), text);
      }
      if (const auto* button = qobject_cast<QAbstractButton*>(widget)) {
        EXPECT_EQ(button->text(), text);
      }
    });
  }

  const QByteArray path_ = qgetenv("PATH");
  QTemporaryDir home_;
  int receiver_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
  QTimer boxes_;
  std::mt19937 random_{1};
  QStringList did_;
  std::unique_ptr<Application> program_;
  bool ended_ = false;
};

TEST_F(RandomActions, NeverUpsetTheWindows) {
  const int actions = qEnvironmentVariableIsSet("TARNWICK_DEEP") ? 20'000 : 1'500;
  Start();
  qint64 slowest = 0;
  for (int i = 0; i < actions && !HasFailure(); ++i) {
    QElapsedTimer timer;
    timer.start();
    Act();
    QApplication::processEvents();
    EXPECT_FALSE(program_->runner.IsBusy()) << "a window is stuck";
    slowest = std::max(slowest, timer.elapsed());
    if (ended_) Start();
    ExpectShown(program_->mainWindow, program_->w.Tarnwick);
    ExpectShown(program_->WindowOf(WindowName::BearingCalc), program_->w.BearingCalc);
    ExpectShown(program_->WindowOf(WindowName::ShowList), program_->w.ShowList);
    ExpectShown(program_->WindowOf(WindowName::SetUpCom), program_->w.SetUpCom);
    EXPECT_EQ(complaints, QStringList()) << complaints.join('\n').toStdString();
  }
  EXPECT_LT(slowest, 5'000);
  if (HasFailure()) std::cout << did_.mid(did_.size() - 30).join('\n').toStdString() << '\n';
}

}  // namespace
