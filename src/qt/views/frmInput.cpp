#include "forms/frmInput.h"

#include "qt/binding/Layouts.h"
#include "qt/views/Views.h"

namespace dorvane {

void LayOut(frmInput& form, FormWindow& window) {
  window.Of(form.txtInput)->setMinimumWidth(320);
  QVBoxLayout* column = WindowColumn(window);
  column->addWidget(window.Of(form.lblInputName));
  column->addWidget(window.Of(form.txtInput));
  column->addStretch();
  column->addLayout(ButtonRow(window, {&form.cmdOk, &form.cmdCan}));
  window.SetDefaultButton(form.cmdOk);
  window.SetCancelButton(form.cmdCan);
  window.SetFirstFocus(form.txtInput);
}

}  // namespace dorvane
