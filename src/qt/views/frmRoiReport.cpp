#include "forms/frmRoiReport.h"

#include "qt/binding/GridCompanions.h"
#include "qt/binding/Layouts.h"
#include "qt/views/Views.h"

namespace dorvane {

void LayOut(frmRoiReport& form, FormWindow& window) {
  auto* grid = window.As<GridView>(form.sprRoiInf);
  grid->SetColumnWidths({"00", "0000", "0000", "0000000000", "0000", "0000000000"});
  grid->SetLeastRows(10);
  QHBoxLayout* foot = ButtonRow(window, {&form.cmdOk});
  foot->insertWidget(0, CopyButton(grid, window.centralWidget()));
  foot->insertWidget(1, window.Of(form.lblMaxRoi));
  QVBoxLayout* column = WindowColumn(window);
  column->addWidget(grid, 1);
  column->addLayout(foot);
  window.SetCancelButton(form.cmdOk);
}

}  // namespace dorvane
