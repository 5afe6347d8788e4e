#include "platform/qt/results_list.h"

#include <QAbstractListModel>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "platform/desktop/qt_text.h"
#include "platform/qt/widget_helpers.h"
#include "sites/lookup/lookup.h"

// Reads the entries from the record when Qt paints them, so that a million of them need no widgets
// and no copies.
class ResultsModel : public QAbstractListModel {
 public:
  ResultsModel(const std::deque<ListEntry>& entries, QObject* parent)
      : QAbstractListModel(parent), entries_(entries) {}

  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : rowCount_;
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const auto row = static_cast<std::size_t>(index.row());
    if (role != Qt::DisplayRole || row >= entries_.size()) return {};
    return ToQt(entries_[row]);
  }
  // A reset loses the selection and the scroll position, so it is only for a new number of entries.
  void Refresh() {
    const int count = static_cast<int>(entries_.size());
    if (count != rowCount_) {
      beginResetModel();
      rowCount_ = count;
      endResetModel();
    } else if (count > 0) {
      emit dataChanged(index(0), index(count - 1));
    }
  }

 private:
  const std::deque<ListEntry>& entries_;
  int rowCount_ = 0;  // as last reported to the views
};

ResultsList::ResultsList(ListBox& list, QWidget* parent)
    : QListView(parent), list_(list), model_(new ResultsModel(list.items, this)) {
  setModel(model_);
  setFlow(QListView::TopToBottom);
  setWrapping(true);
  SetPlainFrame(this);
  setResizeMode(QListView::Adjust);
  setUniformItemSizes(true);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerItem);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  // OK picks the selected entry. The current entry may only have the focus.
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    const QModelIndexList selected = selectedIndexes();
    list_.index = selected.isEmpty() ? -1 : selected.front().row();
  });
}

void ResultsList::Refresh() {
  FitColumns();
  const int picked = list_.index;  // a change of the model resets it
  model_->Refresh();
  if (picked < 0)
    setCurrentIndex({});
  else if (!selectionModel()->isRowSelected(picked))
    setCurrentIndex(model_->index(picked));
}

int ResultsList::EntryWidth() const {
  constexpr int kGutter = 2;  // characters
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  option.features |= QStyleOptionViewItem::HasDisplay;
  option.text = QString(kEntryLength + kGutter, 'W');
  return style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, {}, this).width();
}

void ResultsList::FitColumns() {
  const int width = viewport()->width() / std::max(1, list_.columns);
  const QSize entry(std::max(width, EntryWidth()), fontMetrics().height() + 1);
  if (entry != gridSize()) setGridSize(entry);
}

// Qt would make the first entry the current one without showing it, so that the first Down key
// would select the second.
void ResultsList::focusInEvent(QFocusEvent* event) {
  QListView::focusInEvent(event);
  if (!selectionModel()->hasSelection()) setCurrentIndex({});
}

// A click beside the entries leaves the selection as it is.
void ResultsList::mousePressEvent(QMouseEvent* event) {
  if (indexAt(event->position().toPoint()).isValid()) QListView::mousePressEvent(event);
}

void ResultsList::mouseDoubleClickEvent(QMouseEvent* event) {
  QListView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton) onDoubleClick();
}

void ResultsList::resizeEvent(QResizeEvent* event) {
  FitColumns();
  QListView::resizeEvent(event);
}

// One notch of the wheel scrolls by one column.
void ResultsList::wheelEvent(QWheelEvent* event) {
  constexpr int kNotch = 120;
  wheelAngle_ += event->angleDelta().x() + event->angleDelta().y();
  horizontalScrollBar()->setValue(horizontalScrollBar()->value() - wheelAngle_ / kNotch);
  wheelAngle_ %= kNotch;
}
