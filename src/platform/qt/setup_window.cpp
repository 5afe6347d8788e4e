#include "platform/qt/setup_window.h"

#include <QGridLayout>

#include "platform/desktop/serial_device.h"

SetUpWindowView::SetUpWindowView(Mirror& mirror)
    : FramedWindow(mirror, mirror.w.SetUpCom, "SetUpCom"),
      widgets_(mirror, WindowName::SetUpCom, mirror.w.SetUpCom, this) {
  widgets_.Label("Label2", "CPort");
  widgets_.Label("Label1", "Baud");
  widgets_["Text1"]->setAccessibleName("Message");

  auto* grid = new QGridLayout(this);
  grid->addWidget(widgets_["Label2"], 0, 0);
  grid->addWidget(widgets_["Label1"], 0, 1);
  grid->addWidget(widgets_["CPort"], 1, 0);
  grid->addWidget(widgets_["Baud"], 1, 1);
  grid->addWidget(widgets_["Command1"], 2, 0, 1, 2, Qt::AlignCenter);
  grid->addWidget(widgets_["Text1"], 3, 0, 1, 2);
  // An entry's tool tip is its device. The text behind "COM" is the number.
  auto* ports = widgets_.As<QComboBox>("CPort");
  mirror.OnShow([ports] {
    for (int i = 0; i < ports->count(); ++i)
      if (!ports->itemData(i, Qt::ToolTipRole).isValid())
        ports->setItemData(i, DeviceOf(ports->itemText(i).mid(3).toInt()), Qt::ToolTipRole);
  });
  setFocusProxy(ports);
  ResizeToDesign();
}
