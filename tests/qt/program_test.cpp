#include "program_test.h"

#include <QApplication>
#include <QDir>
#include <QPointer>
#include <filesystem>
#include <utility>

#include "platform/desktop/qt_text.h"
#include "sites/lookup/lookup.h"

ScratchTest::ScratchTest() {
  // Or the files of an installed copy would be read.
  qputenv("XDG_DATA_DIRS", home_.filePath("installed").toUtf8());
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home_.path());
#ifdef _WIN32
  // The registry and drive c: of the Wine that runs the tests.
  QSettings("HKEY_CURRENT_USER\\Software\\Tarnwick", QSettings::NativeFormat).clear();
  std::filesystem::remove(kDefaultDatabase);
#endif
}

void ScratchTest::Write(const QString& name, const QByteArray& content) const {
  QDir(home_.path()).mkpath(QFileInfo(name).path());
  QFile file(home_.filePath(name));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

QByteArray ScratchTest::Content(const QString& name) const {
  QFile file(home_.filePath(name));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

ProgramTest::ProgramTest() {
  onMessage_ = [](const QMessageBox& box) { ADD_FAILURE() << box.text().toStdString(); };
  QObject::connect(&watch_, &QTimer::timeout, [this] {
    const QPointer<QWidget> box = QApplication::activeModalWidget();
    if (box == nullptr) return;
    onMessage_(*qobject_cast<QMessageBox*>(box.get()));
    if (box != nullptr) box->close();
  });
  watch_.start(1);
}

void ProgramTest::Start(const QString& place) {
  program_.reset();
  program_ = std::make_unique<Application>();
  program_->desktop.serial.deviceFolder = home_.path();
  program_->Start(place);
}

void ProgramTest::InstallSites() const {
  const QString sites =
      QString::fromStdU16String(Desktop().CandidatePaths(kDefaultDatabase).front().u16string());
  QDir().mkpath(QFileInfo(sites).path());
  QFile::remove(sites);
  EXPECT_TRUE(QFile::copy(TARNWICK_SAMPLE, sites));
}

QString ProgramTest::TextOf(QWidget* widget) {
  QVariant text = widget->property("text");
  if (!text.isValid()) text = widget->metaObject()->userProperty().read(widget);
  return text.toString();
}

void ProgramTest::Click(const QString& name) {
  auto* widget = Find(name);
  EXPECT_TRUE(widget->isVisible() && widget->isEnabled()) << name.toStdString();
  // A check box ignores a click beside its caption.
  QTest::mouseClick(widget, Qt::LeftButton, {}, {10, widget->height() / 2});
}

void ProgramTest::Type(const char* text) {
  auto* input = Find<QLineEdit>("InputText");
  input->setFocus();
  input->selectAll();
  QTest::keyClicks(input, QString::fromUtf8(text));
}

void ProgramTest::Use(const char* place) {
  Type(place);
  Enter();
}

void ProgramTest::SetHome(const char* place) {
  Use(place);
  Click("SetHome");
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&Pointing(), 60'000));
}

void ProgramTest::Key(int key, Qt::KeyboardModifiers with) {
  QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), with);
}

void ProgramTest::Activate(FramedWindow& window) {
  QApplication::processEvents();  // a command may have asked for the focus of another window
  window.BringToFront();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window, 60'000));
}

void ProgramTest::List(const std::vector<std::string>& entries) {
  program_->runner.Run([&](Workspace& w) {
    OpenResults(w);
    for (const std::string& entry : entries) w.ShowList.PR.items.emplace_back(entry);
  });
  Activate(Results());
}

void ProgramTest::MoveByUser(FramedWindow& window, QPoint position) {
  QTest::qWait(1);
  window.windowHandle()->setFramePosition(position);
  QTest::qWait(1);
}

std::string ProgramTest::MessageOf(const std::function<void()>& action,
                                   const std::function<void()>& meanwhile) {
  QString message;
  const auto onUnexpected = std::exchange(onMessage_, [&](QMessageBox& box) {
    message = box.text();
    watch_.stop();
    meanwhile();
    watch_.start();
  });
  action();
  onMessage_ = onUnexpected;
  return message.toStdString();
}
