#include "forms/frmLog.h"

#include "qt/binding/Layouts.h"
#include "qt/views/Views.h"

namespace dorvane {

void LayOut(frmLog& form, FormWindow& window) {
  window.Of(form.txtMessage)->setMinimumSize(240, 120);
  QVBoxLayout* column = WindowColumn(window);
  column->addWidget(window.Of(form.txtMessage), 1);
  column->addLayout(ButtonRow(window, {&form.cmdClear, &form.cmdHide}));
  window.SetCancelButton(form.cmdHide);
  window.resize(560, 320);
}

}  // namespace dorvane
