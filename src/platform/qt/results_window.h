// The Results window on screen.
#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <functional>

#include "platform/qt/framed_window.h"
#include "platform/qt/widgets.h"

// The entries, read from the record as they are shown: a million cost no widget and no copy.
class EntriesModel : public QAbstractListModel {
 public:
  EntriesModel(const ListBox& state, QObject* parent) : QAbstractListModel(parent), state_(state) {}
  int rowCount(const QModelIndex& parent) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  // Takes up that entries were added or that all were discarded; gives whether there was a change.
  bool Follow();

 private:
  const ListBox& state_;
  int known_ = 0;
};

// Four columns, filled down one and then the next.
class EntriesView : public QListView {
 public:
  explicit EntriesView(QWidget* parent);
  void SetColumns(int columns);
  // Pixels that an entry of the greatest length takes.
  int EntryWidth() const;
  // What a double click does, on an entry or beside them all.
  std::function<void()> onDoubleClick;

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FitColumns();
  int columns_ = 1;
};

// What a lookup found, to pick from.
class ResultsWindowView : public FramedWindow {
 public:
  explicit ResultsWindowView(Mirror& mirror);

 private:
  void ShowSize() override;
  void ShowList();

  Widgets widgets_;
  EntriesView* view_;
  EntriesModel model_;
};
