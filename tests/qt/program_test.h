// What the tests of the windows share: the whole program in a scratch folder, and the mouse and the
// keys of its user.
#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "platform/qt/application.h"

// Sets an environment variable, and restores its value at the end.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const QString& value) : name_(name) {
    qputenv(name, value.toLocal8Bit());
  }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;
  ~ScopedVariable() { before_.isNull() ? qunsetenv(name_) : qputenv(name_, before_); }

 private:
  const char* const name_;
  const QByteArray before_ = qgetenv(name_);
};

// Processes events until `condition` is true; false if that takes very long. The limit is for a
// busy machine: no test waits for it to pass.
template <class Condition>
[[nodiscard]] bool Eventually(Condition condition) {
  return QTest::qWaitFor(condition, 60'000);
}

// A folder in which settings, files, viewers and serial devices are searched instead of the user's.
class ScratchTest : public testing::Test {
 protected:
  ScratchTest();

  void Write(const QString& name, const QByteArray& content) const;
  QByteArray Content(const QString& name) const;  // "missing" if there is no such file

  const QTemporaryDir home_;

 private:
  ScopedVariable data_{"XDG_DATA_HOME", home_.filePath("data")};
  ScopedVariable path_{"PATH", home_.path()};
};

// A message box that no test expects fails the test and is closed.
class ProgramTest : public ScratchTest {
 protected:
  ProgramTest();
  // Ends the program without its exit and starts it again.
  void Start(const QString& place = {});
  // Replaces the database by the sample database.
  void InstallSites() const;

  FramedWindow& Main() { return program_->mainWindow; }
  FramedWindow& Pointing() { return program_->WindowOf(WindowName::BearingCalc); }
  FramedWindow& Results() { return program_->WindowOf(WindowName::ShowList); }
  FramedWindow& PortSetUp() { return program_->WindowOf(WindowName::SetUpCom); }

  // Returns the widget of a control, in the first window that has a control of that name.
  template <class Widget = QWidget>
  Widget* Find(const QString& name) {
    for (const WindowName window : {WindowName::Tarnwick, WindowName::BearingCalc,
                                    WindowName::ShowList, WindowName::SetUpCom})
      if (auto* found = program_->WindowOf(window).findChild<Widget*>(name)) return found;
    ADD_FAILURE() << "no " << name.toStdString();
    return nullptr;
  }
  // Returns the text that a field, a label or a button shows.
  static QString TextOf(QWidget* widget);
  std::string Text(const QString& name) { return TextOf(Find(name)).toStdString(); }

  void Click(const QString& name);
  void Type(const char* text);  // in place of what is in the input box
  void Enter() { QTest::keyClick(Find("InputText"), Qt::Key_Return); }
  void Use(const char* place);
  void SetHome(const char* place);
  void Key(int key, Qt::KeyboardModifiers with = Qt::NoModifier);  // to the widget with the focus
  void Activate(FramedWindow& window);
  // Opens the Results window with some entries.
  void List(const std::vector<std::string>& entries);
  // Moves the frame of a window behind the back of its widget, as a window manager does.
  static void MoveByUser(FramedWindow& window, QPoint position);
  // Returns the text of the message box that `action` opens, after calling `meanwhile`; empty if it
  // opens none.
  std::string MessageOf(
      const std::function<void()>& action, const std::function<void()>& meanwhile = [] {});

  std::unique_ptr<Application> program_;
  std::function<void(QMessageBox&)> onMessage_;  // called when a message box has opened

 private:
  QTimer watch_;
};
