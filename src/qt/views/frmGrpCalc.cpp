#include "forms/frmGrpCalc.h"

#include "qt/binding/Layouts.h"
#include "qt/views/Parts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr const char* kWidestNumber = "-0000000.00";

QHBoxLayout* Term(FormWindow& window, ComboBox& graph, ComboBox& op, NumberBox& number) {
  QWidget* parent = window.centralWidget();
  QHBoxLayout* row = RowOf({new QLabel("(", parent), window.Of(graph), window.Of(op),
                            Entry(window, number, kWidestNumber), new QLabel(")", parent)});
  row->setSpacing(kGap);
  return row;
}

}  // namespace

void LayOut(frmGrpCalc& form, FormWindow& window) {
  QWidget* second = window.Of(form.fra2nd);
  QHBoxLayout* second_term = Term(window, form.cmbGraph[1], form.cmbOpe3, form.ImNumber2);
  // Even margins, so that both terms stand on one line.
  const QMargins edge = second->contentsMargins();
  second_term->setContentsMargins(0, 0, 0, edge.top() - edge.bottom());
  second->setLayout(second_term);

  auto* expression = new QHBoxLayout;
  expression->setSpacing(kGap);
  expression->addWidget(window.Of(form.lblResult));
  expression->addLayout(Term(window, form.cmbGraph[0], form.cmbOpe1, form.ImNumber1));
  expression->addWidget(window.Of(form.cmbOpe2));
  expression->addWidget(second);
  expression->addStretch();

  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(expression);
  column->addWidget(window.Of(form.lblHint));
  column->addSpacing(kGap);
  column->addStretch();
  column->addLayout(ButtonRow(window, {&form.cmdCalc, &form.cmdCancel}));
  window.SetTabOrder({window.Of(form.cmbGraph[0]), window.Of(form.cmbOpe1),
                      window.Of(form.ImNumber1), window.Of(form.cmbOpe2), second,
                      window.Of(form.cmdCalc), window.Of(form.cmdCancel)});
  window.SetDefaultButton(form.cmdCalc);
  window.SetCancelButton(form.cmdCancel);
  window.SetFirstFocus(form.cmbGraph[0]);
}

}  // namespace dorvane
