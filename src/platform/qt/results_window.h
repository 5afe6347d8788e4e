// The Results window on screen: the user picks one of the sites that a lookup found.
#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <functional>

#include "platform/qt/framed_window.h"

// Reads the entries from the record when Qt paints them, so that a million of them need no widgets
// and no copies.
class ResultsModel : public QAbstractListModel {
 public:
  ResultsModel(const ListBox& list, QObject* parent) : QAbstractListModel(parent), list_(list) {}
  int rowCount(const QModelIndex& parent) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  // Makes the views show the entries as they are now.
  void Refresh();

 private:
  const ListBox& list_;
  int rowCount_ = 0;  // as last reported to the views
};

// Shows the entries in columns: fills one column from top to bottom, then the next.
class ResultsView : public QListView {
 public:
  explicit ResultsView(QWidget* parent);
  void SetColumns(int columns);
  // Returns the width in pixels of an entry of the greatest length, with a gutter.
  int EntryWidth() const;
  // Called on a double click anywhere in the list.
  std::function<void()> onDoubleClick;

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void FitColumns();
  int columns_ = 1;
  int wheelAngle_ = 0;  // turned since the last whole notch, in eighths of a degree
};

class ResultsWindowView : public RecordWindow<ResultsWindow> {
 public:
  explicit ResultsWindowView(CommandRunner& runner);

 private:
  void ShowSize() override;
  void ShowList();
  void SetFonts();

  ResultsView* PR_ = new ResultsView(this);
  QPushButton* OK_ = Make(&ResultsWindow::OK);
  ResultsModel model_;
};
