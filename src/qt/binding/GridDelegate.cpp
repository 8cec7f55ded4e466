#include "qt/binding/GridDelegate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "qt/binding/Text.h"

namespace dorvane {
namespace {

constexpr int kPatchInset = 3;
constexpr double kArrowHalf = 4.5;

// Black or white, whichever is told apart better from the ground.
QColor InkOn(const QColor& ground) {
  return qGray(ground.rgb()) > 140 ? Qt::black : Qt::white;
}

void DrawCheck(QPainter* painter, const QStyleOptionViewItem& item, bool checked) {
  const QStyle* style = item.widget != nullptr ? item.widget->style() : QApplication::style();
  QStyleOptionViewItem box = item;
  box.rect = style->subElementRect(QStyle::SE_CheckBoxIndicator, &item, item.widget);
  box.rect.moveCenter(item.rect.center());
  box.state &= ~QStyle::State_HasFocus;
  box.state |= checked ? QStyle::State_On : QStyle::State_Off;
  style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter, item.widget);
}

void DrawArrow(QPainter* painter, const QRect& rect, const QColor& ink) {
  const QPointF centre = QRectF(rect).center();
  painter->setPen(Qt::NoPen);
  painter->setBrush(ink);
  painter->setRenderHint(QPainter::Antialiasing);
  painter->drawPolygon(
      QPolygonF({centre + QPointF(-kArrowHalf, -kArrowHalf), centre + QPointF(kArrowHalf, 0),
                 centre + QPointF(-kArrowHalf, kArrowHalf)}));
}

}  // namespace

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  const GridCell* cell = model_.CellAt(index);
  if (cell == nullptr) return;
  QStyleOptionViewItem item = option;
  if (cell->greyed) item.palette.setCurrentColorGroup(QPalette::Disabled);
  if (cell->greyed) item.state &= ~QStyle::State_Enabled;
  if (cell->is_check) {
    initStyleOption(&item, index);
    item.features &= ~QStyleOptionViewItem::HasCheckIndicator;
    item.text.clear();
    const QStyle* style = item.widget != nullptr ? item.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
    DrawCheck(painter, item, cell->checked);
    return;
  }
  QStyledItemDelegate::paint(painter, item, index);
  if (!cell->back && !cell->mark) return;
  painter->save();
  QColor ink = item.palette.color(QPalette::Text);
  if (cell->back) {
    const QColor ground = ToQColor(*cell->back);
    const QRect patch = option.rect.adjusted(kPatchInset, kPatchInset, -kPatchInset, -kPatchInset);
    ink = InkOn(ground);
    painter->fillRect(patch, ground);
    painter->setPen(ink);
    painter->setFont(option.font);
    painter->drawText(patch.adjusted(kPatchInset, 0, -kPatchInset, 0), Qt::AlignVCenter,
                      ToQString(cell->text));
  }
  if (cell->mark) DrawArrow(painter, option.rect, ink);
  painter->restore();
}

bool GridDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                               const QStyleOptionViewItem& option, const QModelIndex& index) {
  const GridCell* cell = model_.CellAt(index);
  if (cell == nullptr || !cell->is_check) {
    return QStyledItemDelegate::editorEvent(event, model, option, index);
  }
  bool turn = false;
  if (event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::MouseButtonDblClick) {
    turn = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
  } else if (event->type() == QEvent::KeyPress) {
    turn = static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space;
  }
  if (!turn) return false;
  model->setData(index, cell->checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
  return true;
}

}  // namespace dorvane
