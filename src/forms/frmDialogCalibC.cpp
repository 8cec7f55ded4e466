#include "forms/frmDialogCalibC.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "program/CalibCommands.h"
#include "program/Calibration.h"
#include "program/Commands.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr const char* kOverWrite = "Over write?";
constexpr const char* kEnergyPicture = "0.0000";  // keV
constexpr const char* kNoPointsHint =
    "No line has both channel and energy: the coefficients stay as they are.";
constexpr const char* kSingularHints[] = {
    "A straight line takes two different channels: A and B stay as they are.",
    "A parabola takes three different channels: A and B stay as they are.",
};

// Coefficients for channel indices: those of the straight line are for channel numbers.
EgcCoef ForIndices(const CalibTable& table) {
  EgcCoef coefficients = table.ImConst;
  if (table.form == CalibForm::Line) coefficients[0] += coefficients[1];
  return coefficients;
}

}  // namespace

frmDialogCalibC::frmDialogCalibC(Program& program, FormHost& host, CalibWindows windows)
    : Form(host, "frmDialogCalibC", "Energy Constans Value"),
      program_(program),
      windows_(std::move(windows)),
      files_(program) {
  cmdAuto[0].SetCaption("Split Fit");
  cmdAuto[1].SetCaption("MonoFit");
  const char* const names[] = {"A", "B", "C"};
  for (int j = 0; j < ImConst.Size(); ++j) ImConst[j].SetCaption(names[j]);
  vaSpread1.SetMaxRows(kMostCalibPoints);
  for (int row = 1; row <= kMostCalibPoints; ++row) {
    vaSpread1.SetRowTitle(row, std::to_string(row));
  }
  for (int column = kChannel; column <= kSource; ++column) {
    vaSpread1.SetEditableColumn(column, true);
  }
  optCnst_Click();
  ConnectButtons();
  ConnectMenus();
  Shown.Connect([this] {
    if (!Visible()) End();
  });
}

void frmDialogCalibC::ConnectButtons() {
  cmdFileOpen.Click.Connect([this] { cmdFileOpen_Click(); });
  cmdDelFile.Click.Connect([this] { cmdDelFile_Click(); });
  sprdFileName.Click.Connect([this](int row, int) { sprdFileName_Click(row); });
  cmdFitDel.Click.Connect([this] { cmdFitDel_Click(); });
  cmdSmothBk.Click.Connect([this] { cmdSmothBk_Click(); });
  for (int mode = 0; mode < cmdAuto.Size(); ++mode) {
    cmdAuto[mode].Click.Connect([this] { cmdAuto_Click(); });
  }
  cmdCsrSet.Click.Connect([this] { cmdCsrSet_Click(); });
  cmdEnergyInp.Click.Connect([this] { EntEnargy(); });
  cmdDelTable.Click.Connect([this] { cmdDelTable_Click(); });
  optCnst.Click.Connect([this](int) { optCnst_Click(); });
  cmdCalEng.Click.Connect([this] { cmdCalEng_Click(); });
  cmdCurve.Click.Connect([this] { cmdCurve_Click(); });
  cmdCalbOK.Click.Connect([this] { cmdCalbOK_Click(); });
  cmdCalbCan.Click.Connect([this] { cmdCalbCan_Click(); });
}

void frmDialogCalibC::ConnectMenus() {
  mnuFileOpen.Click.Connect([this] { cmdFileOpen_Click(); });
  mnuUpdate.Click.Connect([this] { cmdCalbOK_Click(); });
  mnuCancel.Click.Connect([this] { cmdCalbCan_Click(); });
  mnuElmTable.Click.Connect([this] { EntEnargy(); });
  mnuDelPoint.Click.Connect([this] { cmdDelTable_Click(); });
  mnuShow.Click.Connect([this] { cmdCurve_Click(); });
}

bool frmDialogCalibC::Do(const std::function<void(Program&)>& operation) {
  return RunGuarded(program_, operation);
}

void frmDialogCalibC::Open() {
  if (!open_) {
    open_ = true;
    EneCalStart(program_);
    cmdSmothBk.SetEnabled(true);
    for (int mode = 0; mode < cmdAuto.Size(); ++mode) cmdAuto[mode].SetEnabled(false);
    lblHint.SetCaption("");
    DispKeisu();
    ShowFiles();
  }
  Show();
}

// However the dialog goes, the end of the program among the ways.
void frmDialogCalibC::End() {
  if (!std::exchange(open_, false)) return;
  windows_.CloseElementTable();
  EneCalEnd(program_);
}

int frmDialogCalibC::WinNo() const {
  return GetRealWinNo(program_.List());
}

CalibRow frmDialogCalibC::Row(int row) const {
  return {vaSpread1.Text(row, kChannel), vaSpread1.Text(row, kEnergy),
          vaSpread1.Text(row, kCharacter), vaSpread1.Text(row, kSource)};
}

void frmDialogCalibC::ShowRow(int row, const CalibRow& cells) {
  vaSpread1.SetText(row, kChannel, cells.channel);
  vaSpread1.SetText(row, kEnergy, cells.energy);
  vaSpread1.SetText(row, kCharacter, cells.character);
  vaSpread1.SetText(row, kSource, cells.source);
}

CalibTable frmDialogCalibC::Table() const {
  CalibTable table;
  for (int row = 1; row <= vaSpread1.MaxRows(); ++row) table.rows.push_back(Row(row));
  table.form = optCnst.Index() == 0 ? CalibForm::Line : CalibForm::Parabola;
  for (int j = 0; j < ImConst.Size(); ++j) table.ImConst[j] = ImConst[j].Value();
  return table;
}

void frmDialogCalibC::ShowCoefficients(const CalibTable& table) {
  for (int j = 0; j < ImConst.Size(); ++j) ImConst[j].SetValue(table.ImConst[j]);
}

void frmDialogCalibC::DispKeisu() {
  CalibTable table;
  dorvane::DispKeisu(program_, table);
  optCnst.SetIndex(table.form == CalibForm::Line ? 0 : 1);
  ShowCoefficients(table);
}

void frmDialogCalibC::optCnst_Click() {
  const bool parabola = optCnst.Index() == 1;
  ImConst[2].SetEnabled(parabola);
  if (!parabola) ImConst[2].SetValue(0);
}

void frmDialogCalibC::ShowFiles() {
  std::vector<GridRow> rows;
  for (const std::string& name : files_.Names()) {
    rows.push_back({std::to_string(rows.size() + 1), {GridCell{name}}});
  }
  sprdFileName.SetRows(std::move(rows));
}

void frmDialogCalibC::cmdFileOpen_Click() {
  if (!files_.HasPlace()) return;
  const std::vector<std::string> paths = windows_.ChooseFiles();
  const int before = files_.Count();
  Do([&](Program&) { files_.Open(paths); });
  ShowFiles();
  for (int place = before; place < files_.Count(); ++place) {
    if (files_.RowOf(place) >= 0) sprdFileName.SetActiveRow(place + 1);
  }
}

void frmDialogCalibC::cmdDelFile_Click() {
  Do([this](Program&) { files_.Remove(sprdFileName.ActiveRow() - 1); });
  ShowFiles();
}

void frmDialogCalibC::sprdFileName_Click(int row) {
  Do([&](Program&) { files_.Show(row - 1); });
}

void frmDialogCalibC::cmdFitDel_Click() {
  Do([](Program& program) { Calib_FitDel(program); });
}

// Without a spectrum there is nothing to wait for: the button stays.
void frmDialogCalibC::cmdSmothBk_Click() {
  std::int16_t result = kFalse;
  Do([&](Program& program) {
    files_.MakeRoomForCurves();
    result = Calib_SmothBk(program);
  });
  if (result == kFalse) return;
  cmdSmothBk.SetEnabled(false);
  for (int mode = 0; mode < cmdAuto.Size(); ++mode) cmdAuto[mode].SetEnabled(true);
}

// KEPT: both buttons open the same window, in which the number of peaks tells one from several.
void frmDialogCalibC::cmdAuto_Click() {
  windows_.ManualFit(GrpNo());
}

void frmDialogCalibC::cmdCsrSet_Click() {
  const int row = vaSpread1.ActiveRow();
  CalibRow cells = Row(row);
  if (!cells.channel.empty()) {
    Question question;
    question.text = kOverWrite;
    if (!program_.ports.dialogs.AskYesNo(question)) return;
  }
  Do([&](Program& program) {
    TakePeak(program, cells);
    ShowRow(row, cells);
    vaSpread1.SetActiveRow(row + 1);
  });
}

void frmDialogCalibC::EntEnargy() {
  windows_.ElementTable([this](const ElementEnergy& line) { TakeEnergy(line); });
}

void frmDialogCalibC::TakeEnergy(const ElementEnergy& line) {
  const int row = vaSpread1.ActiveRow();
  vaSpread1.SetText(row, kEnergy, Picture(line.energy_kev, kEnergyPicture));
  vaSpread1.SetText(row, kCharacter, line.label);
}

void frmDialogCalibC::cmdDelTable_Click() {
  CalibTable table = Table();
  DeleteCalibRow(table.rows, vaSpread1.ActiveRow() - 1);
  for (int row = 1; row <= vaSpread1.MaxRows(); ++row) {
    ShowRow(row, table.rows[static_cast<std::size_t>(row - 1)]);
  }
}

void frmDialogCalibC::ShowFit(const CalibFit& fit, CalibForm form) {
  if (fit.status == kNoPoints) return lblHint.SetCaption(kNoPointsHint);
  if (fit.status != kFitted) {
    return lblHint.SetCaption(kSingularHints[form == CalibForm::Line ? 0 : 1]);
  }
  double largest = 0;
  for (const double residual : fit.residuals_ev) largest = std::max(largest, std::abs(residual));
  lblHint.SetCaption(std::to_string(fit.residuals_ev.size()) + " lines, at most " +
                     Picture(largest, "0.0") + " eV off");
}

void frmDialogCalibC::cmdCalEng_Click() {
  Do([this](Program&) {
    CalibTable table = Table();
    const CalibFit fit = Calculate(table);
    ShowCoefficients(table);
    ShowFit(fit, table.form);
  });
}

void frmDialogCalibC::cmdCalbOK_Click() {
  Do([this](Program& program) {
    CalibTable table = Table();
    const CalibFit fit = UpdateCalibration(program, table);
    ShowCoefficients(table);
    ShowFit(fit, table.form);
  });
}

void frmDialogCalibC::cmdCurve_Click() {
  const CalibTable table = Table();
  CalibrationResult result;
  const bool gathered = Do([&](Program&) {
    const CalibPoints points = PointsOf(table.rows);
    for (std::size_t i = 0; i < points.x.size(); ++i) {
      result.points.push_back({points.x[i], points.y[i]});
    }
  });
  if (!gathered) return;
  result.coefficients = ForIndices(table);
  result.memo = CalibMemo(table);
  result.form = optCnst.Index();
  windows_.ShowCurve(std::move(result));
}

void frmDialogCalibC::cmdCalbCan_Click() {
  bool kept = false;
  Do([&](Program&) { kept = !files_.RemoveAll(); });
  ShowFiles();
  if (!kept) Hide();
}

}  // namespace dorvane
