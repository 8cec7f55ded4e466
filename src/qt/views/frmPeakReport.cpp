#include "forms/frmPeakReport.h"

#include <QPushButton>

#include "qt/binding/GridView.h"
#include "qt/binding/Layouts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr int kLeastRows = 10;

QPushButton* CopyButton(const GridView* grid, QWidget* parent) {
  auto* button = new QPushButton("&Copy", parent);
  button->setObjectName("cmdCopy");
  button->setToolTip("The whole table as tab-separated text");
  button->setAutoDefault(false);
  QObject::connect(button, &QPushButton::clicked, grid, &GridView::CopyAll);
  return button;
}

}  // namespace

void LayOut(frmPeakReport& form, FormWindow& window) {
  auto* grid = window.As<GridView>(form.sprPeakInf);
  const QString channel = "0000.000", value = "000.00000", count = "00000000.0",
                small = "0.0000000000";
  grid->SetColumnWidths({channel, value, count, value, value, small, count, value, "E"});
  grid->SetLeastRows(kLeastRows);
  QHBoxLayout* foot = ButtonRow(window, {&form.cmdPkSet, &form.cmdSave, &form.cmdClose});
  foot->insertWidget(0, CopyButton(grid, window.centralWidget()));
  QVBoxLayout* column = WindowColumn(window);
  column->addWidget(window.Of(form.lblHint));
  column->addWidget(grid, 1);
  column->addLayout(foot);
  window.SetCancelButton(form.cmdClose);
  window.SetFirstFocus(form.sprPeakInf);
}

}  // namespace dorvane
