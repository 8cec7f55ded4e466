#include "forms/frmPicture.h"

#include "qt/binding/Layouts.h"
#include "qt/views/Views.h"

namespace dorvane {

void LayOut(frmPicture& form, FormWindow& window) {
  FieldColumns fields(window);
  fields.Add(form.imnWidth, "00000.0");
  fields.Add(form.imnHeight, "00000.0");
  fields.Add(form.imnResolution, "00000.0");
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(fields.Layout());
  column->addWidget(window.Of(form.lblHint));
  column->addStretch();
  column->addLayout(ButtonRow(window, {&form.cmdSave, &form.cmdCopy, &form.cmdCan}));
  window.SetDefaultButton(form.cmdSave);
  window.SetCancelButton(form.cmdCan);
  window.SetFirstFocus(form.imnWidth);
}

}  // namespace dorvane
