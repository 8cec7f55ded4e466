#include "forms/frmKeys.h"

#include "qt/binding/GridView.h"
#include "qt/binding/Layouts.h"
#include "qt/views/Views.h"

namespace dorvane {

void LayOut(frmKeys& form, FormWindow& window) {
  auto* grid = window.As<GridView>(form.sprKeys);
  grid->SetColumnWidths({"Double click on the count axis", "Moves the cursor; marks the area"});
  grid->SetLeastRows(12);
  grid->SetTextColumn(frmKeys::kKey);
  QVBoxLayout* column = WindowColumn(window);
  column->addWidget(grid, 1);
  column->addLayout(ButtonRow(window, {&form.cmdOk}));
  window.SetDefaultButton(form.cmdOk);
  window.SetCancelButton(form.cmdOk);
  window.resize(720, 640);
  window.SetFirstFocus(form.cmdOk);
}

}  // namespace dorvane
