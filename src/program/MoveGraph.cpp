#include "program/MoveGraph.h"

namespace dorvane {
namespace {

// The first row that a window shows; -1 when it has none.
int FirstRowOf(const Workspace& workspace, int win_no) {
  for (int row = 0; row < kRows; ++row) {
    const GraphSlot& slot = workspace.Slots[row];
    if (slot.State != kRowEmpty && slot.WinNo == win_no) return row;
  }
  return -1;
}

}  // namespace

void MoveGraph(Program& program, int grp_no, int win_no) {
  const GraphList list = program.List();
  const GraphSlot& slot = program.workspace.Slots[grp_no];
  const int from = slot.WinNo;
  if (from == win_no) return;
  ChgValue_chkGrp(list, win_no, grp_no, slot.Disp != kFalse);
  const int next = FirstRowOf(program.workspace, from);
  if (program.view.SelectedRow[from] == grp_no && next >= 0) Change_cboGrphSel(list, from, next);
  Change_cboGrphSel(list, win_no, grp_no);
  ChangeActiveWin(list, win_no);
}

}  // namespace dorvane
