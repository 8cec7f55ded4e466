#include "forms/frmSetColor.h"

#include "qt/binding/Layouts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr int kGraphs = kFreeSpectra;  // entries of graphs, which stand in the first column
constexpr int kColumnGap = 32;
constexpr QSize kPatch(56, 28);

}  // namespace

void LayOut(frmSetColor& form, FormWindow& window) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(kGap);
  grid->setVerticalSpacing(kGap / 4);
  for (int i = 0; i < frmSetColor::kNamed; ++i) {
    const int half = i < kGraphs ? 0 : 1;
    const int row = i - half * kGraphs;
    QWidget* patch = window.Of(form.cmdColor[i]);
    patch->setFixedSize(kPatch);
    grid->addWidget(patch, row, 3 * half);
    grid->addWidget(window.Of(form.lblColor[i]), row, 3 * half + 1);
  }
  grid->setColumnMinimumWidth(2, kColumnGap);
  grid->setColumnStretch(4, 1);
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(grid);
  column->addSpacing(kGap);
  column->addStretch();
  column->addLayout(ButtonRow(window, {&form.cmdOk, &form.cmdCansel}));
  window.SetDefaultButton(form.cmdOk);
  window.SetCancelButton(form.cmdCansel);
  window.SetFirstFocus([&form]() -> const Control& { return form.FirstEntry(); });
}

}  // namespace dorvane
