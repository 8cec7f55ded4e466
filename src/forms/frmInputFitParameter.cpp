#include "forms/frmInputFitParameter.h"

#include <string>

#include "forms/PeakTexts.h"
#include "processing/PeakOpe.h"
#include "program/Commands.h"
#include "program/PeakFit.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

// Areas and borders of all peaks.
void SettlePeaks(const GraphList& list, int win_no, int grp_no, int data_no) {
  const PeakTable& table = list.workspace.Peaks[data_no];
  for (int i = 0; i < table.Count; ++i) PeakAreaCalc(list.workspace, data_no, i);
  PeakFixMarkedBorders(list, win_no, grp_no, 0, table.Count - 1);
}

void AddPeak(Program& program, const PeakRec& peak) {
  const GraphList list = program.List();
  const std::int16_t win_no = GetRealWinNo(list);
  const std::int16_t grp_no = program.view.GraphNo;
  const std::int16_t data_no = program.view.DataNo;
  if (PeakInsert(list, win_no, grp_no, peak) < 0) return;
  SettlePeaks(list, win_no, grp_no, data_no);
  MakeFitGraph(program, data_no);
}

}  // namespace

frmInputFitParameter::frmInputFitParameter(Program& program, FormHost& host)
    : Form(host, "frmInputFitParameter", "Input Fit Parameter"), program_(program) {
  // KEPT: the limit of a channel holds for the height, too: a count above it keeps the focus once
  // its box has it.
  for (TextBox* box : {&txtCenterCh, &txtMaxCount, &txtWidth}) {
    box->Validate = [box] { return ChannelNumberOf(box->Text()).has_value(); };
  }
  cmdOK.Click.Connect([this] { cmdOK_Click(); });
  cmdCancel.Click.Connect([this] { cmdCancel_Click(); });
}

void frmInputFitParameter::Open() {
  if (!HoldsGraph(program_.workspace, program_.view.GraphNo)) return;
  Form_Load();
  ShowModal();
}

void frmInputFitParameter::Form_Load() {
  const std::optional<std::int32_t> count = CursorCount(program_, program_.view.DataNo);
  txtCenterCh.SetText(count ? std::to_string(program_.view.CursorCh) : "");
  txtMaxCount.SetText(count ? std::to_string(*count) : "");
  txtWidth.SetText("");
}

void frmInputFitParameter::cmdOK_Click() {
  const auto center = ParseNumber(txtCenterCh.Text());
  const auto height = ParseNumber(txtMaxCount.Text());
  const auto width = ParseNumber(txtWidth.Text());
  if (!center || !height || !width) return;
  PeakRec peak;
  peak.FitDone = kTrue;
  peak.FuncType = program_.workspace.FitParam.FuncType;
  peak.Height = *height;
  peak.GaussRatio = 1;
  peak.HalfWidth = *width;
  peak.Center = *center;
  peak.FitEngine = kEngineExpress;
  RunGuarded(program_, [&peak](Program& program) { AddPeak(program, peak); });
}

}  // namespace dorvane
