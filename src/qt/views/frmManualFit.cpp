#include "forms/frmManualFit.h"

#include "qt/binding/LabelView.h"
#include "qt/binding/Layouts.h"
#include "qt/views/Parts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr const char* kWidestChannel = "00000";
constexpr const char* kWidestCount = "0000000000";

void AddField(QGridLayout* grid, int row, int column, FormWindow& window, TextBox& control) {
  const auto field = control.ReadOnly() ? ReadOut : Entry;
  grid->addWidget(window.CaptionOf(control), row, column);
  grid->addWidget(field(window, control, kWidestChannel), row, column + 1, Qt::AlignRight);
}

QGridLayout* Grid() {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(kGap);
  grid->setVerticalSpacing(kGap);
  return grid;
}

// The region and the two numbers, captions before their fields.
QGridLayout* Head(frmManualFit& form, FormWindow& window) {
  QGridLayout* grid = Grid();
  AddField(grid, 0, 0, window, form.txtStartCh);
  AddField(grid, 0, 3, window, form.txtEndCh);
  AddField(grid, 1, 0, window, form.txtPeakNum);
  AddField(grid, 1, 3, window, form.txtParamNum);
  grid->setColumnMinimumWidth(2, kGap);
  grid->setColumnStretch(5, 1);
  return grid;
}

// One row for each peak below the captions of its columns.
QGridLayout* PeakRows(frmManualFit& form, FormWindow& window) {
  QGridLayout* grid = Grid();
  int column = 1;
  for (TextBox* first : {&form.txtCenterCh[0], &form.txtMaxCount[0], &form.txtWidth[0]}) {
    grid->addWidget(window.CaptionOf(*first), 0, column++, Qt::AlignRight);
  }
  for (int i = 0; i < frmManualFit::kManualPeaks; ++i) {
    const int row = i + 1;
    grid->addWidget(new QLabel(QString::number(row), window.centralWidget()), row, 0);
    grid->addWidget(Entry(window, form.txtCenterCh[i], kWidestCount), row, 1);
    grid->addWidget(Entry(window, form.txtMaxCount[i], kWidestCount), row, 2);
    grid->addWidget(Entry(window, form.txtWidth[i], kWidestChannel), row, 3, Qt::AlignRight);
    grid->addWidget(window.Of(form.cmdGetValue[i]), row, 4);
  }
  grid->setColumnStretch(5, 1);
  return grid;
}

// The tab key walks row by row.
void OrderTabs(frmManualFit& form, FormWindow& window) {
  QWidget* before = window.Of(form.txtParamNum);
  const auto next = [&](const Control& control) {
    QWidget::setTabOrder(before, window.Of(control));
    before = window.Of(control);
  };
  for (int i = 0; i < frmManualFit::kManualPeaks; ++i) {
    next(form.txtCenterCh[i]);
    next(form.txtMaxCount[i]);
    next(form.txtWidth[i]);
    next(form.cmdGetValue[i]);
  }
  next(form.cmdExecute);
  next(form.cmdCancel);
}

}  // namespace

void LayOut(frmManualFit& form, FormWindow& window) {
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(Head(form, window));
  column->addSpacing(kGap);
  column->addLayout(PeakRows(form, window));
  window.As<LabelView>(form.lblHint)->SetElided();
  column->addWidget(window.Of(form.lblHint));
  column->addStretch();
  column->addLayout(ButtonRow(window, {&form.cmdExecute, &form.cmdCancel}));
  OrderTabs(form, window);
  window.SetDefaultButton(form.cmdExecute);
  window.SetCancelButton(form.cmdCancel);
  window.SetFirstFocus(form.txtPeakNum);
}

}  // namespace dorvane
