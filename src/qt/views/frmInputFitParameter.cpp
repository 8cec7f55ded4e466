#include "forms/frmInputFitParameter.h"

#include <QLineEdit>

#include "qt/binding/Layouts.h"
#include "qt/views/Views.h"

namespace dorvane {

void LayOut(frmInputFitParameter& form, FormWindow& window) {
  constexpr const char* kWidest = "0000000000";
  FieldColumns fields(window);
  fields.Add(form.txtCenterCh, kWidest, "Ch");
  fields.Add(form.txtMaxCount, kWidest, "counts");
  fields.Add(form.txtWidth, kWidest, "Ch");
  for (const TextBox* box : {&form.txtCenterCh, &form.txtMaxCount, &form.txtWidth}) {
    window.As<QLineEdit>(*box)->setAlignment(Qt::AlignRight);
  }
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(fields.Layout());
  column->addSpacing(kGap);
  column->addStretch();
  column->addLayout(ButtonRow(window, {&form.cmdOK, &form.cmdCancel}));
  window.SetDefaultButton(form.cmdOK);
  window.SetCancelButton(form.cmdCancel);
  window.SetFirstFocus(form.txtWidth);
}

}  // namespace dorvane
