#include "platform/qt/setup_window.h"

#include <QComboBox>
#include <QGridLayout>
#include <QPlainTextEdit>

#include "platform/desktop/qt_text.h"
#include "platform/desktop/serial_device.h"
#include "platform/qt/accessibility.h"
#include "platform/qt/layout_helpers.h"

SetUpWindowView::SetUpWindowView(CommandRunner& runner) : RecordWindow(runner, runner.w.SetUpCom) {
  NameByLabel(CPort_, Label2_);
  NameByLabel(Baud_, Label1_);
  Text1_->setAccessibleName("Message");
  SetPlainFrame(Text1_);

  auto* grid = new QGridLayout(this);
  grid->addWidget(Label2_, 0, 0);
  grid->addWidget(Label1_, 0, 1);
  grid->addWidget(CPort_, 1, 0);
  grid->addWidget(Baud_, 1, 1);
  grid->addWidget(Command1_, 2, 0, 1, 2, Qt::AlignCenter);
  grid->addWidget(Text1_, 3, 0, 1, 2);
  setFocusProxy(CPort_);
  SetDefaultButton(Command1_);
  // Leaves out the minimise and maximise buttons, so that the title fits.
  setWindowFlags(Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowCloseButtonHint);
  ResizeToDesign();
  runner.AddRefresher(this, [this] { ShowDevices(); });
}

// The tool tip of each port is its device; the number of the port follows "COM".
void SetUpWindowView::ShowDevices() {
  for (int i = 0; i < CPort_->count(); ++i) {
    const QString port = ToQt(record_.CPort.items[static_cast<std::size_t>(i)]);
    CPort_->setItemData(i, DeviceOf(port.mid(3).toInt()), Qt::ToolTipRole);
  }
  // Without a stored setting the start writes "1" into the box, which names no port.
  const bool isPort = ToQt(record_.CPort.text).startsWith("COM", Qt::CaseInsensitive);
  Text1_->setPlaceholderText(isPort ? "" : "Choose a COM port, such as COM9.");
}
