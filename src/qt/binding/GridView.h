// The widget of a grid: a table whose cells are clicked, checked, typed into and copied.
#pragma once

#include <QTableView>

#include "forms/Grid.h"

namespace dorvane {

class GridModel;

// The arrow keys move the grid's active row; Enter is a click, Ctrl+Enter a double click, the space
// bar checks, F2 types. Ctrl+C copies the selected rectangle with its headings.
class GridView : public QTableView {
  Q_OBJECT

 public:
  GridView(Grid& grid, QWidget* parent);

  // Each column as wide as its text in the list or its heading, whichever is wider; the widths
  // stay when cells change. The last column takes the rest of the room.
  void SetColumnWidths(const QStringList& widest_texts);
  // The column, from 1, has texts at the left even where they look like numbers.
  void SetTextColumn(int column);
  // Rows that are in sight at the least; columns all.
  void SetLeastRows(int rows);
  // A click on a heading sorts what is seen by its column: up, down, and as in the grid again. Rows
  // of the grid keep their numbers.
  void SetSortable();
  // Rows selected, as they are seen.
  void Copy() const;
  void CopyAll() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  void Follow();
  void ShowCorner();
  void AddCopyActions();
  QString TextOf(int top, int bottom, int left, int right) const;
  int GridRowOf(const QModelIndex& index) const;

  Grid& grid_;
  GridModel* model_;
  bool following_ = false;
};

}  // namespace dorvane
