#include "program/CalibCommands.h"

#include "program/AutoFit.h"
#include "program/Cursor.h"
#include "program/DerivedGraphs.h"
#include "program/PeakFit.h"
#include "program/View.h"

namespace dorvane {
namespace {

constexpr int kExpansion = 1;  // the window that shows a part of the other in Expand mode

// In Expand mode the other window counts as the active one; the earlier number comes back on every
// way out.
class ExpansionActive {
 public:
  explicit ExpansionActive(ViewState& view) : view_(view), before_(view.CurWin) {
    if (view.ExpandOn != kFalse) view.CurWin = kExpansion;
  }
  ExpansionActive(const ExpansionActive&) = delete;
  ExpansionActive& operator=(const ExpansionActive&) = delete;
  ~ExpansionActive() { view_.CurWin = before_; }

 private:
  ViewState& view_;
  std::int16_t before_;
};

void RefreshHeight(Program& program) {
  const int win_no = GetRealWinNo(program.List());
  if (program.view.AutoScale != kFalse) {
    AutoScaleY(program, win_no, program.view.DataNo);
  } else {
    SetYHeight(program, win_no, program.view.HeightY, true);
  }
}

void Hide(Program& program, int row) {
  const GraphSlot& slot = program.workspace.Slots[row];
  ChgValue_chkGrp(program.List(), slot.WinNo, row, false);
}

void SelectRow(Program& program, int row) {
  if (row >= 0) Change_cboGrphSel(program.List(), GetRealWinNo(program.List()), row);
}

}  // namespace

std::int16_t Calib_FitDel(Program& program) {
  if (!HoldsGraph(program.workspace, program.view.GraphNo)) return kFalse;
  DeletePeaks(program);
  ChangeActiveWin(program.List(), kExpansion);
  RefreshHeight(program);
  return kTrue;
}

std::int16_t Calib_SmothBk(Program& program) {
  if (!HoldsGraph(program.workspace, program.view.GraphNo)) return kFalse;
  bool made = false;
  {
    const ExpansionActive window(program.view);
    SmoothGraph(program);
    BackGroundGraph(program);
    // A list without three free rows has no place for the curves, and its rows are others' graphs.
    made = FindRow(program.workspace, kTitleBackRemv) >= 0;
    if (made) {
      Hide(program, 1);
      Hide(program, 2);
    }
  }
  ChangeActiveWin(program.List(), kExpansion);
  return made ? kTrue : kFalse;
}

std::int16_t Calib_Auto(Program& program, std::int16_t mode,
                        const std::function<void()>& cmdCsrSet_Click) {
  {
    SelectRow(program, FindRow(program.workspace, kTitleBackRemv));
    const ExpansionActive window(program.view);
    const int start = program.view.AreaStart;
    if (start <= 0 || program.view.AreaEnd <= 0) {
      program.ports.dialogs.Message("Plz Set ROI");
      return kFalse;
    }
    // Either takes the area, so that it is cleared.
    if (mode != 0) {
      Split(program);
    } else {
      Fit(program);
    }
    CsrX_Change(program, start);
    PeakJump(program, 1);
    cmdCsrSet_Click();
    SelectRow(program, 1);
  }
  ChangeActiveWin(program.List(), kExpansion);
  RefreshHeight(program);
  return kTrue;
}

void Smooting_Calib(Program& program) {
  SmoothGraph(program);
}

}  // namespace dorvane
