#include "forms/frmDispPara.h"

#include "qt/binding/Layouts.h"
#include "qt/views/Parts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr const char* kWidestNumber = "-00,000.000000";
constexpr const char* const kUnits[] = {"keV", "keV/ch", "keV/ch²"};
constexpr int kColumnGap = 24;

// The kind of the calibration, its coefficients, and the mode.
QVBoxLayout* Calibration(frmDispPara& form, FormWindow& window) {
  HintedFields fields(window);
  for (int i = 0; i < frmDispPara::kCoefficients; ++i) {
    fields.Add(form.ImConst[i], Entry(window, form.ImConst[i], kWidestNumber), &form.lblConst[i],
               new QLabel(kUnits[i], window.centralWidget()));
  }
  QHBoxLayout* kinds = RowOf({window.Of(form.chkCnst[0]), window.Of(form.chkCnst[1])});
  kinds->addStretch();
  InnerColumn(window.Of(form.fraMode))->addWidget(window.Of(form.optMode));
  auto* column = new QVBoxLayout;
  column->setSpacing(kGap);
  column->addLayout(kinds);
  column->addLayout(fields.Layout());
  column->addWidget(window.Of(form.fraMode));
  column->addStretch();
  return column;
}

QVBoxLayout* Conditions(frmDispPara& form, FormWindow& window) {
  NumberBox* const boxes[] = {&form.imnRealTime, &form.imnLiveTime, &form.imnRoiCnt,
                              &form.imnAngle,    &form.ImnPress,    &form.ImnTemp};
  HintedFields fields(window);
  for (int i = 0; i < frmDispPara::kFields; ++i) {
    fields.Add(*boxes[i], Entry(window, *boxes[i], kWidestNumber), &form.lblRange[i]);
  }
  auto* column = new QVBoxLayout;
  column->addLayout(fields.Layout());
  column->addStretch();
  return column;
}

}  // namespace

void LayOut(frmDispPara& form, FormWindow& window) {
  auto* halves = new QHBoxLayout;
  halves->setSpacing(kColumnGap);
  halves->addLayout(Calibration(form, window));
  halves->addWidget(VerticalRule(window.centralWidget()));
  halves->addLayout(Conditions(form, window));
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(halves);
  column->addSpacing(kGap);
  column->addStretch();
  column->addLayout(ButtonRow(window, {&form.cmdOk, &form.cmdCansel}));
  window.SetTabOrder({window.Of(form.chkCnst[0]), window.Of(form.chkCnst[1]),
                      window.Of(form.ImConst[0]), window.Of(form.ImConst[1]),
                      window.Of(form.ImConst[2]), window.Of(form.optMode),
                      window.Of(form.imnRealTime), window.Of(form.imnLiveTime),
                      window.Of(form.imnRoiCnt), window.Of(form.imnAngle), window.Of(form.ImnPress),
                      window.Of(form.ImnTemp), window.Of(form.cmdOk), window.Of(form.cmdCansel)});
  window.SetDefaultButton(form.cmdOk);
  window.SetCancelButton(form.cmdCansel);
  window.SetFirstFocus(form.ImConst[0]);
}

}  // namespace dorvane
