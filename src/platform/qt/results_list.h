// The list of the Results window.
#pragma once

#include <QListView>
#include <functional>

#include "workspace/record/window_state.h"

class ResultsModel;

// Shows the entries of a list box in columns: fills one column from top to bottom, then the next.
class ResultsList : public QListView {
 public:
  // `list` must outlive the view. A selection by the user changes its index.
  ResultsList(ListBox& list, QWidget* parent);
  // Shows the list box as it is now.
  void Refresh();
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

  ListBox& list_;
  ResultsModel* model_;
  int wheelAngle_ = 0;  // turned since the last whole notch, in eighths of a degree
};
