#include "qt/binding/GridCompanions.h"

#include <QScrollBar>

namespace dorvane {
namespace {

void Follow(const QScrollBar* bar, QScrollBar* other) {
  QObject::connect(bar, &QScrollBar::valueChanged, other, &QScrollBar::setValue);
}

}  // namespace

QPushButton* CopyButton(const GridView* grid, QWidget* parent) {
  auto* button = new QPushButton("&Copy", parent);
  button->setObjectName("cmdCopy");
  button->setToolTip("The whole table with its headings as tab-separated text");
  button->setAutoDefault(false);
  QObject::connect(button, &QPushButton::clicked, grid, &GridView::CopyAll);
  return button;
}

void ScrollTogether(GridView* left, GridView* right) {
  left->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  left->setMinimumWidth(left->minimumWidth() - left->verticalScrollBar()->sizeHint().width());
  Follow(left->verticalScrollBar(), right->verticalScrollBar());
  Follow(right->verticalScrollBar(), left->verticalScrollBar());
  // A bar below one of them only would hide a row of its own.
  const auto same_bars = [left, right] {
    const bool needed =
        left->horizontalScrollBar()->maximum() > 0 || right->horizontalScrollBar()->maximum() > 0;
    const auto policy = needed ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
    left->setHorizontalScrollBarPolicy(policy);
    right->setHorizontalScrollBarPolicy(policy);
  };
  same_bars();
  for (const GridView* grid : {left, right}) {
    QObject::connect(grid->horizontalScrollBar(), &QScrollBar::rangeChanged, right, same_bars);
  }
}

}  // namespace dorvane
