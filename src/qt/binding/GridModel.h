// A grid as a model of the toolkit: rows and columns counted from 0 there, from 1 in the grid.
#pragma once

#include <QAbstractTableModel>
#include <QSet>
#include <QStringList>

#include "forms/Grid.h"

namespace dorvane {

class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  GridModel(Grid& grid, QObject* parent);

  // nullptr outside of the grid.
  const GridCell* CellAt(const QModelIndex& index) const;
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
  Grid& grid_;
  int rows_;  // that the views know of
  QStringList headings_;
  QStringList titles_;
  QSet<int> text_columns_;
};

// The rows and columns, both from 0, as lines of texts with tabs between them: headings first, row
// titles in front where the grid has any, check cells as 1 and 0.
QString GridText(const Grid& grid, int first_row, int last_row, int first_column, int last_column);

}  // namespace dorvane
