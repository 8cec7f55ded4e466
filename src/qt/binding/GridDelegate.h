// How a cell of a grid looks: centred check boxes, colour patches, the arrow of the current row.
#pragma once

#include <QStyledItemDelegate>

#include "qt/binding/GridModel.h"

namespace dorvane {

class GridDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  GridDelegate(const GridModel& model, QObject* parent)
      : QStyledItemDelegate(parent), model_(model) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  // A click anywhere in a check cell, and the space bar, turn it.
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

 private:
  const GridModel& model_;
};

}  // namespace dorvane
