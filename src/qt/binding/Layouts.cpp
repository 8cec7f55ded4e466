#include "qt/binding/Layouts.h"

#include <algorithm>

namespace dorvane {
namespace {

constexpr int kLeastButtonWidth = 80;
constexpr int kFieldPadding = 20;  // frame and room for the text cursor

void SetUp(QLayout* layout, int margin) {
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(kGap);
}

}  // namespace

QVBoxLayout* WindowColumn(FormWindow& window) {
  auto* column = new QVBoxLayout(window.centralWidget());
  SetUp(column, kMargin);
  return column;
}

QVBoxLayout* InnerColumn(QWidget* parent) {
  auto* column = new QVBoxLayout(parent);
  SetUp(column, kGap);
  return column;
}

QHBoxLayout* RowOf(std::initializer_list<QWidget*> widgets) {
  auto* row = new QHBoxLayout;
  SetUp(row, 0);
  for (QWidget* widget : widgets) row->addWidget(widget);
  return row;
}

QHBoxLayout* ButtonRow(const FormWindow& window, std::initializer_list<const Button*> buttons) {
  auto* row = new QHBoxLayout;
  SetUp(row, 0);
  row->addStretch();
  int width = kLeastButtonWidth;
  for (const Button* button : buttons) {
    width = std::max(width, window.Of(*button)->sizeHint().width());
  }
  for (const Button* button : buttons) {
    window.Of(*button)->setMinimumWidth(width);
    row->addWidget(window.Of(*button));
  }
  return row;
}

FieldColumns::FieldColumns(FormWindow& window) : window_(window), grid_(new QGridLayout) {
  grid_->setHorizontalSpacing(kGap);
  grid_->setVerticalSpacing(kGap);
  grid_->setColumnStretch(3, 1);
}

void FieldColumns::Add(Control& control, const QString& widest, const QString& unit) {
  const int row = grid_->rowCount();
  QWidget* field = window_.Of(control);
  grid_->addWidget(window_.CaptionOf(control), row, 0);
  if (widest.isEmpty()) {
    grid_->addWidget(field, row, 1, 1, 3);
  } else {
    field->setFixedWidth(field->fontMetrics().horizontalAdvance(widest) + kFieldPadding);
    grid_->addWidget(field, row, 1);
    grid_->addWidget(new QLabel(unit, window_.centralWidget()), row, 2);
  }
}

}  // namespace dorvane
