#include "forms/frmElement.h"

#include "qt/binding/Layouts.h"
#include "qt/views/Parts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr const char* kWidestEnergy = "000.0000";
constexpr const char* kWidestName = "Protactinium";
constexpr int kColumnGap = 16;

QGridLayout* Grid() {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(kGap);
  grid->setVerticalSpacing(kGap);
  grid->setColumnMinimumWidth(3, kColumnGap);
  return grid;
}

void AddField(QGridLayout* grid, int row, int column, FormWindow& window, TextBox& box) {
  const auto field = box.ReadOnly() ? ReadOut : Entry;
  grid->addWidget(window.CaptionOf(box), row, column);
  grid->addWidget(field(window, box, kWidestName), row, column + 1);
}

QGridLayout* Names(frmElement& form, FormWindow& window) {
  QGridLayout* grid = Grid();
  AddField(grid, 0, 0, window, form.txtNumFind);
  AddField(grid, 0, 4, window, form.txtSymbFind);
  AddField(grid, 1, 0, window, form.txtNum);
  AddField(grid, 1, 4, window, form.txtSymbol);
  AddField(grid, 2, 0, window, form.txtElement);
  AddField(grid, 2, 4, window, form.txtElementName);
  return grid;
}

// The eight energies in two columns.
QGridLayout* Energies(frmElement& form, FormWindow& window) {
  QGridLayout* grid = Grid();
  const int rows = kLineKinds / 2;
  for (int kind = 0; kind < kLineKinds; ++kind) {
    const int column = kind / rows * 4;
    TextBox& box = form.txtEnergy[kind];
    grid->addWidget(window.CaptionOf(box), kind % rows, column);
    grid->addWidget(ReadOut(window, box, kWidestEnergy), kind % rows, column + 1, Qt::AlignRight);
    grid->addWidget(new QLabel("keV", window.centralWidget()), kind % rows, column + 2);
  }
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(5, 1);
  return grid;
}

}  // namespace

void LayOut(frmElement& form, FormWindow& window) {
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(Names(form, window));
  column->addSpacing(kGap);
  column->addLayout(Energies(form, window));
  column->addStretch();
  QHBoxLayout* foot = ButtonRow(window, {&form.cmdCancel});
  foot->insertWidget(0, window.Of(form.lblResult));
  column->addLayout(foot);
  window.SetCancelButton(form.cmdCancel);
  window.SetFirstFocus(form.txtSymbFind);
}

}  // namespace dorvane
