#include "qt/binding/GridView.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>

#include "qt/binding/GridDelegate.h"
#include "qt/binding/GridModel.h"
#include "qt/binding/Mirror.h"
#include "qt/binding/TabularFont.h"
#include "qt/binding/Text.h"

namespace dorvane {

constexpr int kRowPadding = 8;
constexpr int kCellPadding = 16;

GridView::GridView(Grid& grid, QWidget* parent)
    : QTableView(parent), grid_(grid), model_(new GridModel(grid, this)) {
  setModel(model_);
  setItemDelegate(new GridDelegate(*model_, this));
  setFont(TabularFont(font()));
  setTabKeyNavigation(false);
  setWordWrap(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setStretchLastSection(true);
  SetColumnWidths({});
  AddCopyActions();
  connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) {
    grid_.PressCell(GridRowOf(index), index.column() + 1);
  });
  connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
    grid_.DoublePressCell(GridRowOf(index), index.column() + 1);
  });
  ShowCorner();
  Mirror(grid, this, [this] { Follow(); });
}

void GridView::Follow() {
  following_ = true;
  model_->Follow();
  verticalHeader()->setVisible(model_->HasRowTitles());
  if (GridRowOf(currentIndex()) != grid_.ActiveRow()) {
    const QModelIndex active =
        model_->index(model_->RowOfGrid(grid_.ActiveRow()), std::max(currentIndex().column(), 0));
    if (active.isValid()) setCurrentIndex(active);
  }
  following_ = false;
}

void GridView::SetColumnWidths(const QStringList& widest_texts) {
  const QFontMetrics cells = fontMetrics();
  const QFontMetrics headings = horizontalHeader()->fontMetrics();
  for (int column = 0; column < model_->columnCount(); ++column) {
    const QString heading = model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    const int width = std::max(headings.horizontalAdvance(heading),
                               cells.horizontalAdvance(widest_texts.value(column)));
    setColumnWidth(column, width + kCellPadding);
  }
}

void GridView::SetTextColumn(int column) {
  model_->SetTextColumn(column - 1);
}

void GridView::SetLeastRows(int rows) {
  const int row_height = verticalHeader()->defaultSectionSize();
  const int bar = verticalScrollBar()->sizeHint().width();
  setMinimumHeight(horizontalHeader()->sizeHint().height() + rows * row_height + 2 * frameWidth());
  setMinimumWidth(horizontalHeader()->length() + bar + 2 * frameWidth());
}

void GridView::SetSortable() {
  horizontalHeader()->setSortIndicatorClearable(true);
  horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  setSortingEnabled(true);
}

int GridView::GridRowOf(const QModelIndex& index) const {
  return model_->GridRow(index.row());
}

// The caption of the grid stands above its row titles.
void GridView::ShowCorner() {
  if (grid_.Caption().empty()) return;
  auto* corner = findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
  if (corner == nullptr) return;
  auto* caption = new QLabel(ToQString(grid_.Caption()), corner);
  auto* row = new QHBoxLayout(corner);
  row->setContentsMargins(kCellPadding / 2, 0, 0, 0);
  row->addWidget(caption);
  verticalHeader()->setMinimumWidth(caption->sizeHint().width() + kCellPadding);
}

void GridView::AddCopyActions() {
  auto* copy = new QAction("&Copy", this);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  connect(copy, &QAction::triggered, this, &GridView::Copy);
  auto* copy_all = new QAction("Copy &whole table", this);
  connect(copy_all, &QAction::triggered, this, &GridView::CopyAll);
  addActions({copy, copy_all});
  setContextMenuPolicy(Qt::ActionsContextMenu);
}

void GridView::Copy() const {
  const QItemSelection selection = selectionModel()->selection();
  if (selection.isEmpty()) return;
  int top = model_->rowCount();
  int bottom = -1;
  int left = model_->columnCount();
  int right = -1;
  for (const QItemSelectionRange& range : selection) {
    top = std::min(top, range.top());
    bottom = std::max(bottom, range.bottom());
    left = std::min(left, range.left());
    right = std::max(right, range.right());
  }
  QApplication::clipboard()->setText(TextOf(top, bottom, left, right));
}

QString GridView::TextOf(int top, int bottom, int left, int right) const {
  std::vector<int> rows;
  for (int row = top; row <= bottom; ++row) rows.push_back(model_->GridRow(row));
  return GridText(grid_, rows, left, right);
}

void GridView::CopyAll() const {
  QApplication::clipboard()->setText(
      TextOf(0, model_->rowCount() - 1, 0, model_->columnCount() - 1));
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const QModelIndex current = currentIndex();
  if (enter && state() == EditingState) return;  // the editor has had it; no button shall
  if (!enter || !current.isValid()) {
    QTableView::keyPressEvent(event);
  } else if (event->modifiers().testFlag(Qt::ControlModifier)) {
    grid_.DoublePressCell(GridRowOf(current), current.column() + 1);
  } else {
    grid_.PressCell(GridRowOf(current), current.column() + 1);
  }
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (!following_ && current.isValid()) grid_.SetActiveRow(GridRowOf(current));
}

}  // namespace dorvane
