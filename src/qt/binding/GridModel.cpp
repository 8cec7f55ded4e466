#include "qt/binding/GridModel.h"

#include <algorithm>
#include <numeric>

#include "qt/binding/Text.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

QStringList HeadingsOf(const Grid& grid) {
  QStringList headings;
  for (const auto& heading : grid.Headings()) headings << ToQString(heading);
  return headings;
}

QStringList TitlesOf(const Grid& grid) {
  QStringList titles;
  for (int row = 1; row <= grid.MaxRows(); ++row) titles << ToQString(grid.RowTitle(row));
  return titles;
}

QString CellText(const GridCell& cell) {
  if (!cell.is_check) return ToQString(cell.text);
  return cell.checked ? "1" : "0";
}

bool Before(const GridCell& left, const GridCell& right) {
  if (left.is_check && right.is_check) return left.checked < right.checked;
  const auto left_number = ParseNumber(left.text);
  const auto right_number = ParseNumber(right.text);
  if (left_number && right_number) return *left_number < *right_number;
  if (left_number || right_number) return left_number.has_value();
  return left.text < right.text;
}

}  // namespace

GridModel::GridModel(Grid& grid, QObject* parent)
    : QAbstractTableModel(parent),
      grid_(grid),
      rows_(grid.MaxRows()),
      headings_(HeadingsOf(grid)),
      titles_(TitlesOf(grid)) {}

const GridCell* GridModel::CellAt(const QModelIndex& index) const {
  const int row = GridRow(index.row());
  const int column = index.column() + 1;
  if (row < 1 || column < 1 || column > grid_.Columns()) return nullptr;
  return &grid_.Cell(row, column);
}

int GridModel::GridRow(int row) const {
  if (row < 0 || row >= grid_.MaxRows()) return 0;
  const auto place = static_cast<std::size_t>(row);
  return place < order_.size() && order_[place] <= grid_.MaxRows() ? order_[place] : row + 1;
}

int GridModel::RowOfGrid(int grid_row) const {
  for (int row = 0; row < grid_.MaxRows(); ++row) {
    if (GridRow(row) == grid_row) return row;
  }
  return -1;
}

QStringList GridModel::SortTexts() const {
  QStringList texts;
  if (sort_column_ < 0 || sort_column_ >= grid_.Columns()) return texts;
  for (int row = 1; row <= grid_.MaxRows(); ++row) {
    texts << ToQString(grid_.Text(row, sort_column_ + 1));
  }
  return texts;
}

std::vector<int> GridModel::SortedRows() const {
  if (sort_column_ < 0 || sort_column_ >= grid_.Columns()) return {};
  std::vector<int> rows(static_cast<std::size_t>(grid_.MaxRows()));
  std::iota(rows.begin(), rows.end(), 1);
  const int column = sort_column_ + 1;
  std::stable_sort(rows.begin(), rows.end(), [&](int left, int right) {
    const GridCell& a = grid_.Cell(left, column);
    const GridCell& b = grid_.Cell(right, column);
    return sort_order_ == Qt::AscendingOrder ? Before(a, b) : Before(b, a);
  });
  return rows;
}

void GridModel::sort(int column, Qt::SortOrder order) {
  sort_column_ = column;
  sort_order_ = order;
  Reorder();
}

void GridModel::Reorder() {
  sorted_by_ = SortTexts();
  std::vector<int> order = SortedRows();
  if (order == order_) return;
  emit layoutAboutToBeChanged({}, VerticalSortHint);
  const QModelIndexList before = persistentIndexList();
  std::vector<int> grid_rows;
  for (const QModelIndex& index : before) grid_rows.push_back(GridRow(index.row()));
  order_ = std::move(order);
  QModelIndexList after;
  for (qsizetype i = 0; i < before.size(); ++i) {
    after << index(RowOfGrid(grid_rows[static_cast<std::size_t>(i)]), before[i].column());
  }
  changePersistentIndexList(before, after);
  emit layoutChanged({}, VerticalSortHint);
}

bool GridModel::HasRowTitles() const {
  for (const QString& title : titles_) {
    if (!title.isEmpty()) return true;
  }
  return false;
}

void GridModel::Follow() {
  const int rows = grid_.MaxRows();
  titles_ = TitlesOf(grid_);
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginRemoveRows({}, rows, rows_ - 1);
    rows_ = rows;
    endRemoveRows();
  }
  if (QStringList headings = HeadingsOf(grid_); headings != headings_) {
    headings_ = std::move(headings);
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
  }
  if (sort_column_ >= 0 && SortTexts() != sorted_by_) Reorder();
  if (rows_ == 0) return;
  emit headerDataChanged(Qt::Vertical, 0, rows_ - 1);
  emit dataChanged(index(0, 0), index(rows_ - 1, columnCount() - 1));
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.Columns();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const GridCell* cell = CellAt(index);
  if (cell == nullptr) return {};
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return ToQString(cell->text);
    case Qt::CheckStateRole:
      return cell->is_check ? QVariant(cell->checked ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::TextAlignmentRole: {
      const bool number = IsNumeric(cell->text) && !text_columns_.contains(index.column());
      return QVariant(Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft));
    }
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  return orientation == Qt::Horizontal ? headings_.value(section)
                                       : titles_.value(GridRow(section) - 1);
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  const GridCell* cell = CellAt(index);
  if (cell == nullptr) return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (cell->is_check) {
    flags |= Qt::ItemIsUserCheckable;
  } else if (grid_.EditableColumn(index.column() + 1)) {
    flags |= Qt::ItemIsEditable;
  }
  return flags;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (CellAt(index) == nullptr) return false;
  const int row = GridRow(index.row());
  const int column = index.column() + 1;
  if (role == Qt::CheckStateRole) {
    grid_.CheckCell(row, column, value.toInt() == Qt::Checked);
  } else if (role == Qt::EditRole) {
    grid_.EditCell(row, column, ToUtf8(value.toString()));
  }
  return role == Qt::CheckStateRole || role == Qt::EditRole;
}

QString GridText(const Grid& grid, const std::vector<int>& rows, int first_column,
                 int last_column) {
  bool titled = false;
  for (const QString& title : TitlesOf(grid)) titled = titled || !title.isEmpty();
  QStringList line;
  if (titled) line << "";
  line << HeadingsOf(grid).mid(first_column, last_column - first_column + 1);
  QStringList lines = {line.join('\t')};
  for (const int row : rows) {
    line.clear();
    if (titled) line << ToQString(grid.RowTitle(row));
    for (int column = first_column + 1; column <= last_column + 1; ++column) {
      line << CellText(grid.Cell(row, column));
    }
    lines << line.join('\t');
  }
  return lines.join('\n') + '\n';
}

}  // namespace dorvane
