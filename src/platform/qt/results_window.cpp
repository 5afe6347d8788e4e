#include "platform/qt/results_window.h"

#include <QBoxLayout>

ResultsWindowView::ResultsWindowView(Mirror& mirror)
    : FramedWindow(mirror, mirror.w.ShowList),
      widgets_(mirror, WindowName::ShowList, mirror.w.ShowList, this) {
  auto* column = new QVBoxLayout(this);
  column->addStretch();
  column->addWidget(widgets_["OK"], 0, Qt::AlignLeft);
  resize(static_cast<int>(state_.width / kTwipsPerPixel),
         static_cast<int>(state_.height / kTwipsPerPixel));
  mirror.OnShow([this] { SetDefaultButton(widgets_.ButtonOf(mirror_.w.ShowList.OK)); });
}
