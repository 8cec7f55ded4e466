#include "forms/frmManualFit.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "forms/PeakTexts.h"
#include "processing/RoiOpe.h"
#include "program/Commands.h"
#include "program/Cursor.h"
#include "program/PeakFit.h"
#include "program/PeakSep.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr int kParametersPerPeak = 3;
constexpr std::int16_t kStartWidth = 10;  // channels
constexpr int kRowsWithStartWidth = 3;
constexpr int kCursorReach = 10;     // channels below the cursor that are its surroundings
constexpr int kCursorWidth = 20;     // channels in all
constexpr int kHighestFitCh = 4096;  // the last channel that a region may end in
constexpr const char* kRegionError = "StartChannel or EndChannel Error";
constexpr const char* kRegionHint = "First mark a region within channels 2 to 4096.";
constexpr const char* kCenterHint = " lies outside: \"Input\" takes the cursor's channel.";

// A typed number, rounded; nothing for what is no number or has no place in T.
template <typename T>
std::optional<T> WholeNumberOf(std::string_view text) {
  const auto number = ParseNumber(text);
  if (!number) return {};
  const double whole = RoundHalfEven(*number);
  if (whole < std::numeric_limits<T>::min() || whole > std::numeric_limits<T>::max()) return {};
  return RoundTo<T>(whole);
}

bool IsFitChannel(int channel) {
  return channel > 0 && channel <= kHighestFitCh;
}

bool IsFitRegion(const AreaRegion& area) {
  return IsFitChannel(area.start) && IsFitChannel(area.end);
}

}  // namespace

frmManualFit::frmManualFit(Program& program, FormHost& host)
    : Form(host, "frmManualFit", "Manual Fitting"), program_(program) {
  txtStartCh.SetReadOnly(true);
  txtEndCh.SetReadOnly(true);
  txtPeakNum.Change.Connect([this] { txtPeakNum_Change(); });
  txtParamNum.Change.Connect([this] { txtParamNum_Change(); });
  for (int i = 0; i < kManualPeaks; ++i) ConnectRow(i);
  cmdExecute.Click.Connect([this] { cmdExecute_Click(); });
  cmdCancel.Click.Connect([this] { cmdCancel_Click(); });
}

void frmManualFit::ConnectRow(int index) {
  txtCenterCh[index].Validate = [this, index] {
    return ChannelNumberOf(txtCenterCh[index].Text()).has_value();
  };
  txtCenterCh[index].Left.Connect([this, index] {
    if (const auto channel = WholeNumberOf<std::int16_t>(txtCenterCh[index].Text())) {
      SetCenterCh(index, *channel);
    }
    ShowHint();
  });
  txtMaxCount[index].Left.Connect([this, index] {
    if (const auto count = WholeNumberOf<std::int32_t>(txtMaxCount[index].Text())) {
      SetMaxCount(index, *count);
    }
  });
  txtWidth[index].Left.Connect([this, index] {
    if (const auto width = WholeNumberOf<std::int16_t>(txtWidth[index].Text())) {
      SetChWidth(index, *width);
    }
  });
  cmdGetValue[index].Click.Connect([this, index] { cmdGetValue_Click(index); });
}

void frmManualFit::Open(int grp_no) {
  if (!HoldsGraph(program_.workspace, grp_no)) return;
  if (program_.workspace.ManualFitOpen == kFalse) Form_Load();
  SetGrpNo(ToInt16(grp_no));
  TakeRegion();
  SetValue();
  ShowModal();
}

void frmManualFit::Form_Load() {
  list_ = {};
  SetPeakNum(1);
  param_num_ = kParametersPerPeak;
  for (int i = 0; i < kRowsWithStartWidth; ++i) SetChWidth(i, kStartWidth);
  program_.workspace.ManualFitOpen = kTrue;
}

void frmManualFit::Form_Unload() {
  program_.workspace.ManualFitOpen = kFalse;
}

void frmManualFit::TakeRegion() {
  const int last = std::max(program_.workspace.Channels[DataNo()].Count - 1, 0);
  const int near = program_.view.CursorCh - kCursorReach;
  SetStartCh(ToInt16(std::clamp(near, 0, last)));
  SetEndCh(ToInt16(std::clamp(near + kCursorWidth - 1, 0, last)));
  if (const AreaRegion area = MarkedArea(program_.view); area.valid) {
    SetStartCh(area.start);
    SetEndCh(area.end);
  }
}

void frmManualFit::SetValue() {
  if (DataNo() < 0 || StartCh() < 0 || EndCh() < 0) return;
  txtStartCh.SetText(std::to_string(StartCh() + 1));
  txtEndCh.SetText(std::to_string(EndCh() + 1));
  for (int i = 0; i < kManualPeaks; ++i) {
    txtCenterCh[i].SetText(std::to_string(CenterCh(i) + 1));
    txtMaxCount[i].SetText(std::to_string(MaxCount(i)));
    txtWidth[i].SetText(std::to_string(ChWidth(i)));
  }
  txtPeakNum.SetText(std::to_string(PeakNum()));
  txtParamNum.SetText(std::to_string(ParamNum()));
  EnableRows(program_.workspace.ExpressFit == 0 ? PeakNum() : 1);
  ShowHint();
}

// What the fit of a region would be refused for.
void frmManualFit::ShowHint() {
  std::string hint;
  if (program_.workspace.ExpressFit == 0) {
    if (!IsFitRegion(MarkedArea(program_.view))) {
      hint = kRegionHint;
    } else {
      for (int i = PeakNum() - 1; i >= 0; --i) {
        if (CenterCh(i) >= StartCh() && CenterCh(i) <= EndCh()) continue;
        hint = "Peak " + std::to_string(i + 1) + kCenterHint;
      }
    }
  }
  lblHint.SetCaption(hint);
}

void frmManualFit::SetPeakNum(std::int16_t count) {
  if (count >= 1 && count <= kManualPeaks) list_.PeakNum = count;
}

void frmManualFit::EnableRows(int count) {
  for (int i = 0; i < kManualPeaks; ++i) {
    for (Control* control :
         {static_cast<Control*>(&txtCenterCh[i]), static_cast<Control*>(&txtMaxCount[i]),
          static_cast<Control*>(&txtWidth[i]), static_cast<Control*>(&cmdGetValue[i])}) {
      control->SetEnabled(i < count);
    }
  }
}

void frmManualFit::txtPeakNum_Change() {
  const auto number = ParseNumber(txtPeakNum.Text());
  if (!number || *number < 1 || *number > kManualPeaks) return;
  SetPeakNum(RoundToInt16(*number));
  txtParamNum.SetText(std::to_string(kParametersPerPeak * PeakNum()));
  EnableRows(PeakNum());
  ShowHint();
}

// Only told: the number of parameters of the fit follows from the peaks.
void frmManualFit::txtParamNum_Change() {
  if (const auto number = WholeNumberOf<std::int16_t>(txtParamNum.Text())) param_num_ = *number;
}

// KEPT: the bare channel of the cursor goes into the box, one less than SetValue shows for it.
void frmManualFit::cmdGetValue_Click(int index) {
  if (DataNo() < 0) return;
  const auto count = CursorCount(program_, DataNo());
  if (!count) return;
  SetCenterCh(index, program_.view.CursorCh);
  SetMaxCount(index, *count);
  txtCenterCh[index].SetText(std::to_string(CenterCh(index)));
  txtMaxCount[index].SetText(std::to_string(MaxCount(index)));
  ShowHint();
}

void frmManualFit::cmdExecute_Click() {
  ok_ = true;
  RunGuarded(program_, [this](Program&) { Execute(); });
  Hide();
}

void frmManualFit::cmdCancel_Click() {
  ok_ = false;
  Hide();
}

void frmManualFit::QueryClose() {
  cmdCancel_Click();
  Form_Unload();
}

int frmManualFit::DataNo() const {
  if (grp_no_ < 0 || grp_no_ >= kRows || !HoldsGraph(program_.workspace, grp_no_)) return -1;
  return program_.workspace.Slots[grp_no_].DataNo;
}

void frmManualFit::Execute() {
  if (DataNo() < 0) return;
  if (program_.workspace.ExpressFit != 0) {
    ExpressFit();
  } else {
    const ViewState& view = program_.view;
    NaxRegionFit(view.ExpandOn != kFalse ? 0 : view.CurWin, grp_no_);
  }
}

// KEPT: a region that begins in channel 0 is refused as one without an area is.
void frmManualFit::NaxRegionFit(int win_no, int grp_no) {
  const AreaRegion area = TakeArea(program_);
  if (!IsFitRegion(area)) {
    program_.ports.dialogs.Message(kRegionError);
    return;
  }
  Hide();  // before the boxes of a fit that fails
  const std::int16_t data_no = program_.workspace.Slots[grp_no].DataNo;
  if (NaxManualFit(program_, win_no, data_no, list_) != 0) return;
  program_.Listener().RedrawWanted(win_no);
}

// The peaks as they are in the table: what was typed only tells one peak from several.
void frmManualFit::ExpressFit() {
  const GraphList list = program_.List();
  const std::int16_t win_no = program_.workspace.Slots[grp_no_].WinNo;
  if (program_.view.GraphNo != grp_no_) {
    ChangeActiveWin(list, win_no);
    Change_cboGrphSel(list, GetRealWinNo(list), grp_no_);
  }
  if (PeakNum() == 1) {
    FitPeak(program_, win_no);
  } else {
    PeakSep(program_, win_no);
  }
}

}  // namespace dorvane
