#include "platform/qt/results_window.h"

#include <QBoxLayout>
#include <QFontDatabase>
#include <QMouseEvent>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "platform/desktop/qt_text.h"
#include "sites/lookup/lookup.h"

int EntriesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : known_;
}

QVariant EntriesModel::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  if (role != Qt::DisplayRole || row >= state_.items.size()) return {};
  return ToQt(state_.items[row]);
}

bool EntriesModel::Follow() {
  const int count = static_cast<int>(state_.items.size());
  if (count == known_) return false;
  beginResetModel();
  known_ = count;
  endResetModel();
  return true;
}

EntriesView::EntriesView(QWidget* parent) : QListView(parent) {
  setFlow(QListView::TopToBottom);
  setWrapping(true);
  setResizeMode(QListView::Adjust);
  setUniformItemSizes(true);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerItem);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void EntriesView::SetColumns(int columns) {
  if (columns == columns_) return;
  columns_ = columns;
  FitColumns();
}

int EntriesView::EntryWidth() const {
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  option.features |= QStyleOptionViewItem::HasDisplay;
  option.text = QString(kEntryLength, 'W');
  return style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, {}, this).width() + 2;
}

void EntriesView::FitColumns() {
  const int width = viewport()->width() / std::max(1, columns_);
  setGridSize({std::max(width, EntryWidth()), fontMetrics().height() + 1});
}

// With the focus the first entry would be the current one, unseen, and the first Down pass it over.
void EntriesView::focusInEvent(QFocusEvent* event) {
  QListView::focusInEvent(event);
  if (!selectionModel()->hasSelection()) setCurrentIndex({});
}

// Beside the entries nothing is selected and what is stays so.
void EntriesView::mousePressEvent(QMouseEvent* event) {
  if (indexAt(event->position().toPoint()).isValid()) QListView::mousePressEvent(event);
}

void EntriesView::mouseDoubleClickEvent(QMouseEvent* event) {
  QListView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && onDoubleClick) onDoubleClick();
}

void EntriesView::resizeEvent(QResizeEvent* event) {
  FitColumns();
  QListView::resizeEvent(event);
}

ResultsWindowView::ResultsWindowView(Mirror& mirror)
    : FramedWindow(mirror, mirror.w.ShowList, "ShowList"),
      widgets_(mirror, WindowName::ShowList, mirror.w.ShowList, this),
      view_(new EntriesView(this)),
      model_(mirror.w.ShowList.PR, this) {
  Mirror::Describe(view_, "PR", "");
  view_->setAccessibleName("Sites found");
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setFamilies({"Lucida Console", fixed.family(), "DejaVu Sans Mono", "Liberation Mono"});
  fixed.setPointSizeF(std::max(8.25, font().pointSizeF()));
  view_->setFont(fixed);
  view_->setModel(&model_);
  fixed.setPointSizeF(std::max(12.0, font().pointSizeF()));
  widgets_["OK"]->setFont(fixed);

  auto* column = new QVBoxLayout(this);
  column->addWidget(view_, 1);
  column->addWidget(widgets_["OK"], 0, Qt::AlignLeft);

  QWidget::setTabOrder(view_, widgets_["OK"]);
  setFocusProxy(view_);
  // The current entry may be one that merely has the focus; what is picked is the selected one.
  connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    const QModelIndexList selected = view_->selectionModel()->selectedIndexes();
    mirror_.w.ShowList.PR.index = selected.isEmpty() ? -1 : selected.front().row();
  });
  view_->onDoubleClick = [this] {
    mirror_.Run(*FindEvent(WindowName::ShowList, "PR", UserAction::DoubleClick));
  };
  mirror.OnShow([this] { ShowList(); });
}

// As wide as four columns of entries, if the screen has room for them.
void ResultsWindowView::ShowSize() {
  if (!state_.visible) return;
  const QMargins margins = layout()->contentsMargins();
  const int entries = 4 * view_->EntryWidth() + 2 * view_->frameWidth();
  const int wanted = std::max(static_cast<int>(state_.width / kTwipsPerPixel),
                              entries + margins.left() + margins.right());
  resize(std::min(wanted, screen()->availableGeometry().width()),
         static_cast<int>(state_.height / kTwipsPerPixel));
}

void ResultsWindowView::ShowList() {
  const ResultsWindow& window = mirror_.w.ShowList;
  SetDefaultButton(widgets_.ButtonOf(window.*window.defaultButton));
  view_->SetColumns(window.PR.columns);
  const int index = window.PR.index;
  if (model_.Follow() && index >= 0) view_->setCurrentIndex(model_.index(index));
  if (index < 0) view_->setCurrentIndex({});
}
