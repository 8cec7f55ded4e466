#include "forms/frmDialogMessage.h"

#include <QPlainTextEdit>

#include "qt/binding/Layouts.h"
#include "qt/views/Views.h"

namespace dorvane {

void LayOut(frmDialogMessage& form, FormWindow& window) {
  auto* message = window.As<QPlainTextEdit>(form.itxtMessage);
  message->setMinimumSize(360, 88);
  QVBoxLayout* column = WindowColumn(window);
  column->addWidget(message, 1);
  column->addLayout(ButtonRow(window, {&form.cmdYes, &form.cmdNo}));
  window.SetDefaultButton(form.cmdYes);
  window.SetCancelButton(form.cmdNo);
  window.resize(384, 144);
  window.SetFirstFocus(form.cmdYes);
}

}  // namespace dorvane
