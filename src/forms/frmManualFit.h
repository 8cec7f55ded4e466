// The dialog that collects up to five peaks of a channel region by hand and fits them.
#pragma once

#include <cstdint>

#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "program/NaxManualFit.h"
#include "program/Program.h"

namespace dorvane {

// Modal. The properties count channels from 0; what was collected stays from one opening to the
// next, until the dialog is closed by its frame.
class frmManualFit : public Form {
 public:
  static constexpr int kManualPeaks = 5;

  // Both outlive the form.
  frmManualFit(Program& program, FormHost& host);

  // Shows the form for a graph, its region being the area cursor's, which stays as it is, or
  // without one the cursor's surroundings. Nothing where the row holds no graph.
  void Open(int grp_no);
  // Fills the form from its properties. Nothing where GrpNo holds no graph or the region begins or
  // ends below channel 0.
  void SetValue();
  // Whether the user has confirmed.
  bool OK() const { return ok_; }

  // The properties; the peak index is 0..4, a fault (Subscript) for any other.
  std::int16_t StartCh() const { return list_.StartCh; }
  std::int16_t EndCh() const { return list_.EndCh; }
  std::int16_t CenterCh(int index) const { return list_.CenterCh[index]; }
  std::int32_t MaxCount(int index) const { return list_.MaxCount[index]; }
  std::int16_t ChWidth(int index) const { return list_.ChWidth[index]; }
  std::int16_t PeakNum() const { return list_.PeakNum; }  // 1..5
  std::int16_t ParamNum() const { return param_num_; }
  std::int16_t GrpNo() const { return grp_no_; }
  void SetStartCh(std::int16_t channel) { list_.StartCh = channel; }
  void SetEndCh(std::int16_t channel) { list_.EndCh = channel; }
  void SetCenterCh(int index, std::int16_t channel) { list_.CenterCh[index] = channel; }
  void SetMaxCount(int index, std::int32_t count) { list_.MaxCount[index] = count; }
  void SetChWidth(int index, std::int16_t width) { list_.ChWidth[index] = width; }
  void SetPeakNum(std::int16_t count);  // outside 1..5 it is ignored
  void SetGrpNo(std::int16_t grp_no) { grp_no_ = grp_no; }

  void txtPeakNum_Change();
  void txtParamNum_Change();
  void cmdGetValue_Click(int index);
  void cmdExecute_Click();
  void cmdCancel_Click();
  void QueryClose() override;

  TextBox txtStartCh{controls_, "txtStartCh", "START CH"};  // counted from 1, as txtEndCh
  TextBox txtEndCh{controls_, "txtEndCh", "END CH"};
  TextBox txtPeakNum{controls_, "txtPeakNum", "# of PEAK"};
  TextBox txtParamNum{controls_, "txtParamNum", "# of PARAMETER"};
  ControlArray<TextBox> txtCenterCh{controls_, "txtCenterCh", kManualPeaks, "CENTER CH"};
  ControlArray<TextBox> txtMaxCount{controls_, "txtMaxCount", kManualPeaks, "MAX COUNT"};
  ControlArray<TextBox> txtWidth{controls_, "txtWidth", kManualPeaks, "WIDTH"};
  ControlArray<Button> cmdGetValue{controls_, "cmdGetValue", kManualPeaks, "Input"};
  Label lblHint{controls_, "lblHint"};  // what "Execute" still lacks
  Button cmdExecute{controls_, "cmdExecute", "Execute"};
  Button cmdCancel{controls_, "cmdCancel", "Cancel"};

 private:
  void Form_Load();
  void Form_Unload();
  void ConnectRow(int index);
  void TakeRegion();
  void ShowHint();
  void EnableRows(int count);
  int DataNo() const;
  void Execute();
  void NaxRegionFit(int win_no, int grp_no);
  void ExpressFit();

  Program& program_;
  ManualFitList list_;
  std::int16_t param_num_ = 0;
  std::int16_t grp_no_ = 0;
  bool ok_ = false;
};

}  // namespace dorvane
