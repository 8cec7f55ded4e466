#include "forms/frmInputFitParameter.h"

#include "qt/binding/Layouts.h"
#include "qt/views/Views.h"

namespace dorvane {

void LayOut(frmInputFitParameter& form, FormWindow& window) {
  FieldColumns fields(window);
  fields.Add(form.txtCenterCh, "00000.00", "Ch");
  fields.Add(form.txtMaxCount, "0000000000", "counts");
  fields.Add(form.txtWidth, "00000.00", "Ch");
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(fields.Layout());
  column->addStretch();
  column->addLayout(ButtonRow(window, {&form.cmdOK, &form.cmdCancel}));
  window.SetDefaultButton(form.cmdOK);
  window.SetCancelButton(form.cmdCancel);
  window.SetFirstFocus(form.txtWidth);
}

}  // namespace dorvane
