#include "forms/frmPrint.h"

#include "qt/binding/Layouts.h"
#include "qt/views/Views.h"

namespace dorvane {

void LayOut(frmPrint& form, FormWindow& window) {
  window.Of(form.txtFileName)->setMinimumWidth(280);
  FieldColumns fields(window);
  fields.Add(form.txtFileName);
  fields.Add(form.optOrientation);
  fields.Add(form.ImnDrawWidth, "000", "1 to 20, width of the curve on paper");
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(fields.Layout());
  column->addStretch();
  column->addLayout(ButtonRow(window, {&form.cmdOk, &form.cmdPreview, &form.cmdCan}));
  window.SetDefaultButton(form.cmdOk);
  window.SetCancelButton(form.cmdCan);
  window.SetFirstFocus(form.optOrientation);
}

}  // namespace dorvane
