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
  for (GridView* grid : {left, right}) {
    // One that had a bar below its rows would show fewer of them.
    grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  }
  Follow(left->verticalScrollBar(), right->verticalScrollBar());
  Follow(right->verticalScrollBar(), left->verticalScrollBar());
}

}  // namespace dorvane
