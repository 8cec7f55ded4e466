#include "forms/frmDialogCalibC.h"

#include "qt/binding/GridView.h"
#include "qt/binding/LabelView.h"
#include "qt/binding/Layouts.h"
#include "qt/views/Parts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr QSize kStartSize(860, 560);
constexpr int kSectionGap = 16;
constexpr int kLeastFiles = 8;
constexpr int kLeastLines = 10;
constexpr const char* kWidestCoefficient = "-00,000.000000";
constexpr const char* const kUnits[] = {"keV", "keV/ch", "keV/ch²"};

QGridLayout* NarrowGrid() {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(kGap);
  grid->setVerticalSpacing(kGap);
  return grid;
}

QLabel* Head(FormWindow& window, const QString& text) {
  return SmallCaption(text, Qt::AlignLeft, window.centralWidget());
}

// The reference spectra, and what is done with the current one.
QVBoxLayout* Spectra(frmDialogCalibC& form, FormWindow& window) {
  auto* files = window.As<GridView>(form.sprdFileName);
  files->SetColumnWidths({"reference_spectrum.npd"});
  files->SetTextColumn(1);
  files->SetLeastRows(kLeastFiles);
  QGridLayout* buttons = NarrowGrid();
  buttons->addWidget(window.Of(form.cmdFileOpen), 0, 0);
  buttons->addWidget(window.Of(form.cmdDelFile), 0, 1);
  buttons->setRowMinimumHeight(1, kGap);
  buttons->addWidget(Head(window, "Current spectrum"), 2, 0, 1, 2);
  QWidget* smooth = window.Of(form.cmdSmothBk);
  smooth->setMinimumWidth(smooth->sizeHint().width() + 2 * kGap);
  buttons->addWidget(smooth, 3, 0);
  buttons->addWidget(window.Of(form.cmdFitDel), 3, 1);
  buttons->addWidget(window.Of(form.cmdAuto[0]), 4, 0);
  buttons->addWidget(window.Of(form.cmdAuto[1]), 4, 1);
  auto* column = new QVBoxLayout;
  column->setSpacing(kGap);
  column->addWidget(Head(window, "Reference spectra"));
  column->addWidget(files, 1);
  column->addLayout(buttons);
  return column;
}

QVBoxLayout* Lines(frmDialogCalibC& form, FormWindow& window) {
  auto* lines = window.As<GridView>(form.vaSpread1);
  lines->SetColumnWidths({"00000.0000", "000.0000", "Cd AbsEdge", "reference_spectrum"});
  lines->SetTextColumn(frmDialogCalibC::kCharacter);
  lines->SetTextColumn(frmDialogCalibC::kSource);
  lines->SetLeastRows(kLeastLines);
  auto* column = new QVBoxLayout;
  column->setSpacing(kGap);
  column->addWidget(Head(window, "Known lines"));
  column->addWidget(lines, 1);
  column->addLayout(RowOf(
      {window.Of(form.cmdCsrSet), window.Of(form.cmdEnergyInp), window.Of(form.cmdDelTable)}));
  return column;
}

// The form of the calibration beside its coefficients.
QHBoxLayout* Calibration(frmDialogCalibC& form, FormWindow& window) {
  QGridLayout* fields = NarrowGrid();
  fields->setVerticalSpacing(kGap / 2);
  for (int j = 0; j < form.ImConst.Size(); ++j) {
    fields->addWidget(window.CaptionOf(form.ImConst[j]), j, 0);
    fields->addWidget(Entry(window, form.ImConst[j], kWidestCoefficient), j, 1);
    fields->addWidget(new QLabel(kUnits[j], window.centralWidget()), j, 2);
  }
  auto* row = new QHBoxLayout;
  row->setSpacing(kSectionGap);
  row->addWidget(window.Of(form.optCnst), 0, Qt::AlignVCenter);
  row->addWidget(VerticalRule(window.centralWidget()));
  row->addLayout(fields);
  row->addStretch(1);
  auto* buttons = new QVBoxLayout;
  buttons->setSpacing(kGap);
  buttons->addStretch();
  buttons->addWidget(window.Of(form.cmdCalEng));
  buttons->addWidget(window.Of(form.cmdCurve));
  buttons->addStretch();
  row->addLayout(buttons);
  return row;
}

}  // namespace

void LayOut(frmDialogCalibC& form, FormWindow& window) {
  auto* tables = new QHBoxLayout;
  tables->setSpacing(kSectionGap);
  tables->addLayout(Spectra(form, window), 2);
  tables->addLayout(Lines(form, window), 5);
  window.As<LabelView>(form.lblHint)->SetElided();
  QHBoxLayout* foot = ButtonRow(window, {&form.cmdCalbOK, &form.cmdCalbCan});
  foot->insertWidget(0, window.Of(form.lblHint), 1);
  for (const Button* button : {&form.cmdCalEng, &form.cmdCurve}) {
    window.Of(*button)->setMinimumWidth(window.Of(form.cmdCalbOK)->minimumWidth());
  }
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(tables, 1);
  column->addSpacing(kGap);
  column->addLayout(Calibration(form, window));
  column->addSpacing(kGap);
  column->addLayout(foot);
  window.SetDefaultButton(form.cmdCalEng);
  window.SetCancelButton(form.cmdCalbCan);
  window.SetFirstFocus(form.vaSpread1);
  window.resize(kStartSize);
}

}  // namespace dorvane
