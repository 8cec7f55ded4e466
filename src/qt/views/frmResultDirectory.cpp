#include "forms/frmResultDirectory.h"

#include "qt/binding/Layouts.h"
#include "qt/views/Views.h"

namespace dorvane {

void LayOut(frmResultDirectory& form, FormWindow& window) {
  window.Of(form.txtDirectory)->setMinimumWidth(400);
  QVBoxLayout* column = WindowColumn(window);
  column->addWidget(window.Of(form.lblPurpose));
  column->addLayout(RowOf({window.Of(form.txtDirectory), window.Of(form.cmdBrowse)}));
  column->addStretch();
  column->addLayout(ButtonRow(window, {&form.cmdOk, &form.cmdCan}));
  window.SetDefaultButton(form.cmdOk);
  window.SetCancelButton(form.cmdCan);
  window.SetFirstFocus(form.txtDirectory);
}

}  // namespace dorvane
