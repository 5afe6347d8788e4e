#include "platform/qt/results_window.h"

#include <QBoxLayout>
#include <QFontDatabase>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

#include "platform/desktop/qt_text.h"
#include "platform/qt/layout_helpers.h"
#include "sites/lookup/lookup.h"

int ResultsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rowCount_;
}

QVariant ResultsModel::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  if (role != Qt::DisplayRole || row >= list_.items.size()) return {};
  return ToQt(list_.items[row]);
}

// A reset loses the selection and the scroll position, so it is only for a new number of entries.
void ResultsModel::Refresh() {
  const int count = static_cast<int>(list_.items.size());
  if (count != rowCount_) {
    beginResetModel();
    rowCount_ = count;
    endResetModel();
  } else if (count > 0) {
    emit dataChanged(index(0), index(count - 1));
  }
}

ResultsView::ResultsView(QWidget* parent) : QListView(parent) {
  setFlow(QListView::TopToBottom);
  setWrapping(true);
  SetPlainFrame(this);
  setResizeMode(QListView::Adjust);
  setUniformItemSizes(true);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerItem);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void ResultsView::SetColumns(int columns) {
  if (columns == columns_) return;
  columns_ = columns;
  FitColumns();
}

int ResultsView::EntryWidth() const {
  constexpr int kGutter = 2;  // characters
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  option.features |= QStyleOptionViewItem::HasDisplay;
  option.text = QString(kEntryLength + kGutter, 'W');
  return style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, {}, this).width();
}

void ResultsView::FitColumns() {
  const int width = viewport()->width() / std::max(1, columns_);
  setGridSize({std::max(width, EntryWidth()), fontMetrics().height() + 1});
}

// Qt would make the first entry the current one without showing it, so that the first Down key
// would select the second.
void ResultsView::focusInEvent(QFocusEvent* event) {
  QListView::focusInEvent(event);
  if (!selectionModel()->hasSelection()) setCurrentIndex({});
}

// A click beside the entries leaves the selection as it is.
void ResultsView::mousePressEvent(QMouseEvent* event) {
  if (indexAt(event->position().toPoint()).isValid()) QListView::mousePressEvent(event);
}

void ResultsView::mouseDoubleClickEvent(QMouseEvent* event) {
  QListView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && onDoubleClick) onDoubleClick();
}

void ResultsView::resizeEvent(QResizeEvent* event) {
  FitColumns();
  QListView::resizeEvent(event);
}

// One notch of the wheel scrolls by one column.
void ResultsView::wheelEvent(QWheelEvent* event) {
  constexpr int kNotch = 120;
  wheelAngle_ += event->angleDelta().x() + event->angleDelta().y();
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() - wheelAngle_ / kNotch);
  wheelAngle_ %= kNotch;
}

ResultsWindowView::ResultsWindowView(CommandRunner& runner)
    : RecordWindow(runner, runner.w.ShowList), model_(record_.PR, this) {
  setAccessibleName("Results");
  PR_->setAccessibleName("Sites found");
  PR_->setModel(&model_);
  SetFonts();

  auto* column = new QVBoxLayout(this);
  column->addWidget(PR_, 1);
  column->addWidget(OK_, 0, Qt::AlignLeft);

  setFocusProxy(PR_);
  // OK picks the selected entry. The current entry may only have the focus.
  connect(PR_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    const QModelIndexList selected = PR_->selectionModel()->selectedIndexes();
    record_.PR.index = selected.isEmpty() ? -1 : selected.front().row();
  });
  const char* const name = NameOf(&ResultsWindow::PR);
  PR_->onDoubleClick = [this, name] {
    runner_.Run(*binder_.EventOf(name, UserAction::DoubleClick));
  };
  binder_.Bind(PR_, name, "", [this] { ShowList(); });
}

void ResultsWindowView::SetFonts() {
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setFamilies({"Lucida Console", fixed.family(), "DejaVu Sans Mono", "Liberation Mono"});
  for (const auto& [widget, points] : {std::pair<QWidget*, double>(PR_, 8.25), {OK_, 12}}) {
    fixed.setPointSizeF(FontAtLeast(this, points, false).pointSizeF());
    widget->setFont(fixed);
  }
}

// At least as wide as four columns of entries, as far as the screen allows.
void ResultsWindowView::ShowSize() {
  if (!state_.visible) return;
  const QMargins margins = layout()->contentsMargins();
  const int columns = 4 * PR_->EntryWidth() + 2 * PR_->frameWidth();
  const int wanted = std::max(static_cast<int>(state_.width / kTwipsPerPixel),
                              columns + margins.left() + margins.right());
  const double height = state_.height / kTwipsPerPixel * FontScale(this);
  resize(QSize(wanted, static_cast<int>(height)).boundedTo(screen()->availableGeometry().size()));
}

void ResultsWindowView::ShowList() {
  PR_->SetColumns(record_.PR.columns);
  const int picked = record_.PR.index;  // a change of the model resets it
  model_.Refresh();
  if (picked < 0)
    PR_->setCurrentIndex({});
  else if (!PR_->selectionModel()->isRowSelected(picked))
    PR_->setCurrentIndex(model_.index(picked));
}
