// A grid of rows and columns, both counted from 1: texts, check boxes and coloured cells, with
// click events.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "support/Surface.h"

namespace dorvane {

struct GridCell {
  std::string text{};
  bool is_check = false;
  bool checked = false;
  std::optional<dorvane::Color> back{};
  bool mark = false;  // the picture of the current row
  bool greyed = false;

  friend bool operator==(const GridCell&, const GridCell&) = default;
};

struct GridRow {
  std::string title{};
  std::vector<GridCell> cells{};

  friend bool operator==(const GridRow&, const GridRow&) = default;
};

class Grid : public Control {
 public:
  Grid(ControlList& controls, std::string name, std::vector<std::string> headings);
  void Accept(ControlVisitor& visitor) override;

  int Columns() const { return static_cast<int>(headings_.size()); }
  const std::vector<std::string>& Headings() const { return headings_; }
  void SetHeading(int column, std::string heading);
  int MaxRows() const { return static_cast<int>(rows_.size()); }
  void SetMaxRows(int rows);  // new rows are empty, surplus ones go
  const std::vector<GridRow>& Rows() const { return rows_; }
  // All rows at once, told once. Throws Fault(Subscript) unless each has a cell for every column.
  void SetRows(std::vector<GridRow> rows);
  const std::string& RowTitle(int row) const;
  void SetRowTitle(int row, std::string title);

  // Throw Fault(Subscript) outside of the grid.
  const GridCell& Cell(int row, int column) const;
  void SetCell(int row, int column, GridCell cell);
  const std::string& Text(int row, int column) const { return Cell(row, column).text; }
  void SetText(int row, int column, std::string text);

  bool EditableColumn(int column) const;
  void SetEditableColumn(int column, bool editable);
  int ActiveRow() const { return active_row_; }
  void SetActiveRow(int row);

  // What the user does; ignored outside of the grid.
  void PressCell(int row, int column);
  void DoublePressCell(int row, int column);
  void CheckCell(int row, int column, bool checked);
  void EditCell(int row, int column, std::string text);

  Event<int, int> Click;     // row, column
  Event<int, int> DblClick;  // row, column
  Event<int, int> Checked;   // a check cell has a new value
  Event<int, int> Edited;    // a text cell has a new text

 private:
  bool Has(int row, int column) const;

  std::vector<std::string> headings_;
  std::vector<bool> editable_;
  std::vector<GridRow> rows_;
  int active_row_ = 1;
};

}  // namespace dorvane
