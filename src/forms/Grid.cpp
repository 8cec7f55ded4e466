#include "forms/Grid.h"

#include <algorithm>
#include <utility>

#include "forms/ControlVisitor.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

std::size_t Place(int number) {
  return static_cast<std::size_t>(number - 1);
}

}  // namespace

Grid::Grid(ControlList& controls, std::string name, std::vector<std::string> headings)
    : Control(controls, std::move(name)),
      headings_(std::move(headings)),
      editable_(headings_.size(), false) {}

void Grid::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

bool Grid::Has(int row, int column) const {
  return row >= 1 && row <= MaxRows() && column >= 1 && column <= Columns();
}

void Grid::SetHeading(int column, std::string heading) {
  if (column < 1 || column > Columns()) throw Fault(FaultCode::Subscript);
  Store(headings_[Place(column)], std::move(heading));
}

void Grid::SetMaxRows(int rows) {
  rows = std::max(rows, 0);
  if (rows == MaxRows()) return;
  rows_.resize(static_cast<std::size_t>(rows),
               GridRow{"", std::vector<GridCell>(headings_.size())});
  active_row_ = std::clamp(active_row_, 1, std::max(rows, 1));
  Shown.Fire();
}

void Grid::SetRows(std::vector<GridRow> rows) {
  for (const GridRow& row : rows) {
    if (row.cells.size() != headings_.size()) throw Fault(FaultCode::Subscript);
  }
  if (rows == rows_) return;
  rows_ = std::move(rows);
  active_row_ = std::clamp(active_row_, 1, std::max(MaxRows(), 1));
  Shown.Fire();
}

const std::string& Grid::RowTitle(int row) const {
  if (row < 1 || row > MaxRows()) throw Fault(FaultCode::Subscript);
  return rows_[Place(row)].title;
}

void Grid::SetRowTitle(int row, std::string title) {
  if (row < 1 || row > MaxRows()) throw Fault(FaultCode::Subscript);
  Store(rows_[Place(row)].title, std::move(title));
}

const GridCell& Grid::Cell(int row, int column) const {
  if (!Has(row, column)) throw Fault(FaultCode::Subscript);
  return rows_[Place(row)].cells[Place(column)];
}

void Grid::SetCell(int row, int column, GridCell cell) {
  if (!Has(row, column)) throw Fault(FaultCode::Subscript);
  Store(rows_[Place(row)].cells[Place(column)], std::move(cell));
}

void Grid::SetText(int row, int column, std::string text) {
  GridCell cell = Cell(row, column);
  cell.text = std::move(text);
  SetCell(row, column, std::move(cell));
}

bool Grid::EditableColumn(int column) const {
  return column >= 1 && column <= Columns() && editable_[Place(column)];
}

void Grid::SetEditableColumn(int column, bool editable) {
  if (column < 1 || column > Columns()) throw Fault(FaultCode::Subscript);
  if (editable_[Place(column)] == editable) return;
  editable_[Place(column)] = editable;
  Shown.Fire();
}

void Grid::SetActiveRow(int row) {
  if (row >= 1 && row <= MaxRows()) Store(active_row_, row);
}

void Grid::PressCell(int row, int column) {
  if (!Has(row, column)) return;
  SetActiveRow(row);
  Click.Fire(row, column);
}

void Grid::DoublePressCell(int row, int column) {
  if (Has(row, column)) DblClick.Fire(row, column);
}

void Grid::CheckCell(int row, int column, bool checked) {
  if (!Has(row, column) || !Cell(row, column).is_check) return;
  GridCell cell = Cell(row, column);
  if (cell.checked == checked) return;
  cell.checked = checked;
  SetCell(row, column, std::move(cell));
  Checked.Fire(row, column);
}

void Grid::EditCell(int row, int column, std::string text) {
  if (!Has(row, column) || !EditableColumn(column) || Text(row, column) == text) return;
  SetText(row, column, std::move(text));
  Edited.Fire(row, column);
}

}  // namespace dorvane
