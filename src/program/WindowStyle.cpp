#include "program/WindowStyle.h"

#include "program/View.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

// Which windows pile up graphs of their own: in pile-up style the first alone.
void SetFilePile(ViewState& view) {
  view.FilePile[0] = kTrue;
  view.FilePile[1] = view.PileUpOn != kFalse ? kFalse : kTrue;
}

void SelectInSecondWindow(Program& program) {
  for (int grp_no = 1; grp_no < kRows; ++grp_no) {
    if (program.workspace.Slots[grp_no].State == kRowEmpty) continue;
    Change_cboGrphSel(program.List(), 1, grp_no);
    return;
  }
}

void ShowStyle(Program& program) {
  WorkspaceListener& listener = program.Listener();
  listener.WindowStyleChanged();
  listener.CheckBoxesFilled();
  listener.SelectionListFilled();
  if (program.view.AutoScale != kFalse) {
    AutoScaleY(program, GetRealWinNo(program.List()), program.view.DataNo);
  }
  listener.UnitAxisChanged();
  for (int win_no = 0; win_no < kWindows; ++win_no) listener.RedrawWanted(win_no);
}

void SetWinStyle(ViewState& view, bool pile_up) {
  view.WinStyleOld = view.WinStyle;
  view.WinStyle = pile_up ? kPileUpSwitched : kLineUp;
  view.PileUpOn = pile_up ? kTrue : kFalse;
}

}  // namespace

void ckbExpand_Click(Program& program, bool on) {
  ViewState& view = program.view;
  if ((view.ExpandOn != kFalse) == on) return;
  view.ExpandOn = on ? kTrue : kFalse;
  if (on && view.PileUpOn != kFalse) SetWinStyle(view, false);
  SetFilePile(view);
  ShowStyle(program);
}

void chkWinStyle_Click(Program& program, bool on) {
  ViewState& view = program.view;
  if ((view.PileUpOn != kFalse) == on) return;
  SetWinStyle(view, on);
  if (on) SelectInSecondWindow(program);
  SetFilePile(view);
  if (view.FilePile[1] == kFalse) view.ExpandOn = kTrue;
  ShowStyle(program);
}

void chkFilePile_Click(Program& program, int win_no, bool on) {
  if (program.view.ExpandOn != kFalse) return;
  program.view.FilePile[win_no] = on ? kTrue : kFalse;
  program.Listener().CursorMoved();
  SetYHeight(program, win_no, program.view.HeightY, true);
}

void ToggleExpand(Program& program) {
  ckbExpand_Click(program, program.view.ExpandOn == kFalse);
}
void LineUpGraphs(Program& program) {
  chkWinStyle_Click(program, false);
}
void PileUpGraphs(Program& program) {
  chkWinStyle_Click(program, true);
}

}  // namespace dorvane
