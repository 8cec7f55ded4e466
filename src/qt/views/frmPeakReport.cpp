#include "forms/frmPeakReport.h"

#include <QScreen>
#include <algorithm>

#include "qt/binding/GridCompanions.h"
#include "qt/binding/Layouts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr int kLeastRows = 10;
constexpr int kLeastErrors = 240;  // pixels

// On a narrow screen the errors scroll.
void FitToScreen(const GridView* peaks, GridView* errors) {
  const int room =
      errors->screen()->availableGeometry().width() - peaks->minimumWidth() - kGap - 2 * kMargin;
  const int whole = errors->minimumWidth();
  errors->setMinimumWidth(std::min(whole, std::max(room, kLeastErrors)));
}

// The peaks, and their errors row by row at the right.
QGridLayout* Tables(const frmPeakReport& form, FormWindow& window) {
  auto* peaks = window.As<GridView>(form.sprPeakInf);
  auto* errors = window.As<GridView>(form.sprPeakErr);
  const QString channel = "0000.000", value = "000.00000", count = "00000000.0",
                small = "0.0000000000", error = "0.000000";
  peaks->SetColumnWidths({channel, value, count, value, value, small, count, value, "E"});
  errors->SetColumnWidths({error, error, error, error, error, error});
  for (GridView* grid : {peaks, errors}) grid->SetLeastRows(kLeastRows);
  ScrollTogether(peaks, errors);
  FitToScreen(peaks, errors);
  auto* tables = new QGridLayout;
  tables->setHorizontalSpacing(kGap);
  tables->addWidget(window.Of(form.lblHint), 0, 0);
  tables->addWidget(window.Of(form.lblPeakErr), 0, 1);
  tables->addWidget(peaks, 1, 0);
  tables->addWidget(errors, 1, 1);
  tables->setColumnStretch(0, 1);
  tables->setRowStretch(1, 1);
  return tables;
}

}  // namespace

void LayOut(frmPeakReport& form, FormWindow& window) {
  QHBoxLayout* foot =
      ButtonRow(window, {&form.cmdPkSet, &form.cmdSave, &form.cmdPrint, &form.cmdClose});
  foot->insertWidget(0, CopyButton(window.As<GridView>(form.sprPeakInf), window.centralWidget()));
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(Tables(form, window), 1);
  column->addLayout(foot);
  window.SetCancelButton(form.cmdClose);
  window.SetFirstFocus(form.sprPeakInf);
}

}  // namespace dorvane
