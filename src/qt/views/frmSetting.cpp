#include "forms/frmSetting.h"

#include "qt/binding/Layouts.h"
#include "qt/views/Parts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr const char* kWidestNumber = "000.000000";
constexpr const char* kWidestThreshold = "0000";
constexpr int kSliderWidth = 140;

void AddNumber(HintedFields& fields, FormWindow& window, TextBox& box, const Label& hint,
               QWidget* unit = nullptr) {
  fields.Add(box, Entry(window, box, kWidestNumber), &hint, unit);
}

}  // namespace

void LayOut(frmSetting& form, FormWindow& window) {
  window.Of(form.sldrThres)->setFixedWidth(kSliderWidth);
  HintedFields fields(window);
  fields.Add(form.cboSmooth, window.Of(form.cboSmooth));
  AddNumber(fields, window, form.txtBackInterval, form.lblBackInterval);
  AddNumber(fields, window, form.txtBackTimes, form.lblBackTimes);
  fields.Add(form.txtThres, Entry(window, form.txtThres, kWidestThreshold), &form.lblThres,
             window.Of(form.sldrThres));
  fields.Add(form.cboFuncType, window.Of(form.cboFuncType));
  fields.AddBelow(window.Of(form.chkFitFunc));
  AddNumber(fields, window, form.txtEACPS, form.lblEACPS);
  AddNumber(fields, window, form.txtISPPK, form.lblISPPK);
  AddNumber(fields, window, form.txtLambda, form.lblLambda);
  AddNumber(fields, window, form.txtJudgeRange, form.lblJudgeRange, window.Of(form.lblJudgeUnit));

  QHBoxLayout* buttons = ButtonRow(window, {&form.cmdOk, &form.cmdCansel});
  buttons->insertWidget(0, window.Of(form.cmdDefault));
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(fields.Layout());
  column->addSpacing(kGap);
  column->addStretch();
  column->addLayout(buttons);
  window.SetCancelButton(form.cmdCansel);
  window.SetFirstFocus(form.cboSmooth);
}

}  // namespace dorvane
