#include "forms/frmElement.h"

#include <QLineEdit>

#include "qt/binding/Layouts.h"
#include "qt/views/Parts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr const char* kWidestEnergy = "000.0000";
constexpr const char* kWidestName = "Protactinium";
constexpr int kColumnGap = 16;
constexpr int kHalf = 4;  // columns of the grid: caption, value, unit, gap
constexpr int kRows = kLineKinds / 2;

// A name, which takes the columns of value and unit.
void AddName(QGridLayout* grid, int row, int half, FormWindow& window, TextBox& box) {
  const bool typed = !box.ReadOnly();
  auto* field = typed ? Entry(window, box, kWidestName) : ReadOut(window, box, kWidestName);
  static_cast<QLineEdit*>(field)->setAlignment(Qt::AlignLeft);
  grid->addWidget(window.CaptionOf(box), row, half * kHalf);
  grid->addWidget(field, row, half * kHalf + 1, 1, 2);
}

void AddEnergy(QGridLayout* grid, int row, int half, FormWindow& window, TextBox& box) {
  grid->addWidget(window.CaptionOf(box), row, half * kHalf);
  grid->addWidget(ReadOut(window, box, kWidestEnergy), row, half * kHalf + 1);
  grid->addWidget(new QLabel("keV", window.centralWidget()), row, half * kHalf + 2);
}

// What is searched for, the names, and the eight energies in two columns.
QGridLayout* Fields(frmElement& form, FormWindow& window) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(kGap);
  grid->setVerticalSpacing(kGap);
  grid->setColumnMinimumWidth(kHalf - 1, kColumnGap);
  AddName(grid, 0, 0, window, form.txtNumFind);
  AddName(grid, 0, 1, window, form.txtSymbFind);
  AddName(grid, 1, 0, window, form.txtNum);
  AddName(grid, 1, 1, window, form.txtSymbol);
  AddName(grid, 2, 0, window, form.txtElement);
  AddName(grid, 2, 1, window, form.txtElementName);
  grid->setRowMinimumHeight(3, kGap);
  for (int kind = 0; kind < kLineKinds; ++kind) {
    AddEnergy(grid, 4 + kind % kRows, kind / kRows, window, form.txtEnergy[kind]);
  }
  return grid;
}

}  // namespace

void LayOut(frmElement& form, FormWindow& window) {
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(Fields(form, window));
  column->addStretch();
  QHBoxLayout* foot = ButtonRow(window, {&form.cmdCancel});
  foot->insertWidget(0, window.Of(form.lblResult));
  column->addLayout(foot);
  window.SetCancelButton(form.cmdCancel);
  window.SetFirstFocus(form.txtSymbFind);
}

}  // namespace dorvane
