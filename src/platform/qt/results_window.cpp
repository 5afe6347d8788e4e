#include "platform/qt/other_windows.h"

#include <QBoxLayout>
#include <QFontDatabase>
#include <QScreen>
#include <algorithm>

namespace {

class ResultsWindowView : public RecordWindow<ResultsWindow> {
 public:
  explicit ResultsWindowView(CommandRunner& runner) : RecordWindow(runner, runner.w.ShowList) {
    setAccessibleName("Results");
    list_->setAccessibleName("Sites found");
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setFamilies({"Lucida Console", fixed.family(), "DejaVu Sans Mono", "Liberation Mono"});
    QPushButton* ok = WidgetOf(&ResultsWindow::OK);
    for (const auto& [widget, points] : {std::pair<QWidget*, double>(list_, 8.25), {ok, 12}}) {
      fixed.setPointSizeF(FontAtLeast(this, points, false).pointSizeF());
      widget->setFont(fixed);
    }
    auto* column = new QVBoxLayout(this);
    column->addWidget(list_, 1);
    column->addWidget(ok, 0, Qt::AlignLeft);
    setFocusProxy(list_);
  }

 private:
  // Makes the window at least as wide as four columns of entries, as far as the screen allows.
  void ShowSize() override {
    const QMargins margins = layout()->contentsMargins();
    const int columns = 4 * list_->EntryWidth() + 2 * list_->frameWidth();
    const int wanted = std::max(static_cast<int>(state_.width / kTwipsPerPixel),
                                columns + margins.left() + margins.right());
    const double height = state_.height / kTwipsPerPixel * FontScale(this);
    resize(QSize(wanted, static_cast<int>(height)).boundedTo(screen()->availableGeometry().size()));
  }

  ResultsList* const list_ = WidgetOf(&ResultsWindow::PR);
};

}  // namespace

std::unique_ptr<FramedWindow> MakeResultsWindow(CommandRunner& runner) {
  return std::make_unique<ResultsWindowView>(runner);
}
