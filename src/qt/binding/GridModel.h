// A grid as a model of the toolkit: rows and columns counted from 0 there, from 1 in the grid. The
// model may show the rows in another order; the grid knows nothing of it.
#pragma once

#include <QAbstractTableModel>
#include <QSet>
#include <QStringList>
#include <vector>

#include "forms/Grid.h"

namespace dorvane {

class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  GridModel(Grid& grid, QObject* parent);

  // nullptr outside of the grid.
  const GridCell* CellAt(const QModelIndex& index) const;
  // Row of the grid, from 1, that is shown in a row, from 0; 0 outside of the grid.
  int GridRow(int row) const;
  // The reverse; -1 outside of the grid.
  int RowOfGrid(int grid_row) const;
  // Numbers by their value before texts by theirs, check cells by their state; the grid's own order
  // where both are equal. Column -1: the grid's own order. Kept until sorted anew: when a text of
  // the column or the number of rows changes.
  void sort(int column, Qt::SortOrder order) override;
  bool HasRowTitles() const;
  // Texts of the column, from 0, stand at the left even where they look like numbers.
  void SetTextColumn(int column) { text_columns_.insert(column); }
  // The grid has changed: tells the views what is to be shown anew.
  void Follow();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 private:
  std::vector<int> SortedRows() const;
  void Reorder();
  QStringList SortTexts() const;

  Grid& grid_;
  int rows_;                // that the views know of
  std::vector<int> order_;  // grid row of each row; empty: as in the grid
  int sort_column_ = -1;
  Qt::SortOrder sort_order_ = Qt::AscendingOrder;
  QStringList sorted_by_;  // texts of the column when it was sorted
  QStringList headings_;
  QStringList titles_;
  QSet<int> text_columns_;
};

// Rows of the grid, from 1, in that order, and columns, from 0, as lines of texts with tabs between
// them: headings first, row titles in front where the grid has any, check cells as 1 and 0.
QString GridText(const Grid& grid, const std::vector<int>& rows, int first_column, int last_column);

}  // namespace dorvane
