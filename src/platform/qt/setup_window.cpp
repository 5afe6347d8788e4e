#include "platform/qt/setup_window.h"

#include <QGridLayout>
#include <QShowEvent>

#include "platform/desktop/qt_text.h"
#include "platform/desktop/serial_device.h"

namespace {

class SetUpWindowView : public RecordWindow<SetUpWindow> {
 public:
  explicit SetUpWindowView(CommandRunner& runner) : RecordWindow(runner, runner.w.SetUpCom) {
    auto* grid = new QGridLayout(this);
    int column = 0;
    for (const auto& [caption, control] : {std::pair(&SetUpWindow::Label2, &SetUpWindow::CPort),
                                           {&SetUpWindow::Label1, &SetUpWindow::Baud}}) {
      auto* label = WidgetOf(caption);
      auto* box = WidgetOf(control);
      label->setBuddy(box);
      box->setAccessibleName(label->text());
      box->lineEdit()->setAccessibleName(label->text());
      grid->addWidget(label, 0, column);
      grid->addWidget(box, 1, column++);
    }
    auto* open = WidgetOf(&SetUpWindow::Command1);
    grid->addWidget(open, 2, 0, 1, 2, Qt::AlignCenter);
    grid->addWidget(message_, 3, 0, 1, 2);
    message_->setAccessibleName("Message");
    SetPlainFrame(message_);
    setFocusProxy(ports_);
    SetDefaultButton(open);
    // Leaves out the minimise and maximise buttons, so that the title fits.
    setWindowFlags(Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowCloseButtonHint);
    runner.AddRefresher([this] { ShowDevices(); });
  }

 private:
  // Typing replaces the port.
  void showEvent(QShowEvent* event) override {
    RecordWindow::showEvent(event);
    if (!event->spontaneous()) ports_->lineEdit()->selectAll();
  }

  // The tool tip of each port is its device; the number of the port follows "COM".
  void ShowDevices() {
    for (int i = 0; i < ports_->count(); ++i)
      ports_->setItemData(i, DeviceOf(ports_->itemText(i).mid(3).toInt()), Qt::ToolTipRole);
    // Without a stored setting the start writes "1" into the box, which names no port.
    const bool isPort = ports_->currentText().startsWith("COM", Qt::CaseInsensitive);
    message_->setPlaceholderText(isPort ? "" : "Choose a COM port, such as COM9.");
  }

  QComboBox* const ports_ = WidgetOf(&SetUpWindow::CPort);
  QPlainTextEdit* const message_ = WidgetOf(&SetUpWindow::Text1);
};

}  // namespace

std::unique_ptr<FramedWindow> MakeSetUpWindow(CommandRunner& runner) {
  return std::make_unique<SetUpWindowView>(runner);
}
