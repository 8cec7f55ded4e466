// That the controls of the forms show the state, after every action of a user.
#pragma once

#include "display/DrawScale.h"
#include "forms/MenuTable.h"
#include "forms/StoreInvariants.h"
#include "forms/frmDorvane.h"
#include "forms/frmRoiReport.h"
#include "forms/frmSelGraph.h"

namespace dorvane {

inline void CheckMenus(frmDorvane& form, const Program& program, Wrong& wrong) {
  for (const MenuRow& row : MenuTable()) {
    if (row.checked == nullptr) continue;
    auto* item = dynamic_cast<MenuItem*>(form.Controls().Find(row.name));
    Expect(item != nullptr && item->Checked() == row.checked(program),
           "check mark of " + std::string(row.name), wrong);
  }
}

// The main form.
inline void CheckForms(frmDorvane& form, const Program& program, Wrong& wrong) {
  const ViewState& view = program.view;
  const Workspace& workspace = program.workspace;
  Expect(form.cursor.inumCursorCh.Value() == view.CursorCh, "inumCursorCh shows the cursor", wrong);
  Expect(form.cursor.updCursorX.Value() == view.CursorCh, "updCursorX follows the cursor", wrong);
  Expect(form.cursor.chkArea.Checked() == (view.AreaOn != kFalse), "chkArea shows AreaOn", wrong);
  Expect(form.scale.imnSpanCh.Value() == view.SpanCh, "imnSpanCh shows SpanCh", wrong);
  Expect(form.scale.hsbStartX.Value() == static_cast<int>(view.StartCh), "hsbStartX shows StartCh",
         wrong);
  Expect(form.scale.cboUnitX.Index() == view.DispUnit, "cboUnitX shows the unit", wrong);
  Expect(form.scale.hsbWidthY.Value() == view.WidthY, "hsbWidthY shows the height", wrong);
  Expect(form.scale.ckbLogScale.Checked() == (view.LogScale != kFalse), "ckbLogScale", wrong);
  Expect(form.scale.ckbVtAuto.Checked() == (view.AutoScale != kFalse), "ckbVtAuto", wrong);
  Expect(form.scale.ckbNorScale.Checked() == (view.NorScale != kFalse), "ckbNorScale", wrong);
  Expect(form.style.ckbExpand.Checked() == (view.ExpandOn != kFalse), "ckbExpand", wrong);
  Expect(form.style.chkWinStyle.Checked() == (view.PileUpOn != kFalse), "chkWinStyle", wrong);
  for (int win_no = 0; win_no < kWindows; ++win_no) {
    const ComboBox& rows = form.selector.cboGrphSel[win_no];
    const int items = static_cast<int>(rows.Items().size());
    const int row = view.SelectedRow[win_no];
    Expect(rows.Index() == (row < items ? row : -1), "cboGrphSel shows the selected row", wrong);
    Expect(form.style.chkFilePile[win_no].Checked() == (view.FilePile[win_no] != kFalse),
           "chkFilePile", wrong);
  }
  for (int i = 0; i < kWindows * kRows; ++i) {
    const GraphSlot& slot = workspace.Slots[i % kRows];
    const bool used = slot.State != kRowEmpty;
    const CheckBox& box = form.selector.chkGrp[i];
    const bool here = used && slot.WinNo == i / kRows && slot.Disp != kFalse;
    Expect(box.Visible() == used && box.Checked() == here, box.Name() + " shows its row", wrong);
    Expect(!used || box.Caption() == slot.Title, box.Name() + " shows the title", wrong);
  }
  Expect(form.Caption() == view.Caption, "the form's caption", wrong);
  CheckMenus(form, program, wrong);
}

inline void CheckGraphList(const frmSelGraph& form, const Program& program, Wrong& wrong) {
  for (int grp_no = 0; grp_no < kRows; ++grp_no) {
    const GraphSlot& slot = program.workspace.Slots[grp_no];
    const bool used = slot.State != kRowEmpty;
    const Grid& grid = form.sprGraphSel;
    const int row = grp_no + 1;
    const std::string which = " of row " + std::to_string(grp_no) + " in the graph list";
    Expect(grid.Text(row, frmSelGraph::kWin) == (used ? std::to_string(slot.WinNo + 1) : ""),
           "window" + which, wrong);
    Expect(grid.Text(row, frmSelGraph::kFileName) == (used ? slot.Title : ""), "title" + which,
           wrong);
    const GridCell& shown = grid.Cell(row, frmSelGraph::kDisp);
    Expect(shown.is_check == used && shown.checked == (used && slot.Disp != kFalse),
           "check" + which, wrong);
    const GridCell& active = grid.Cell(row, frmSelGraph::kActiv);
    Expect(active.mark == (used && program.view.GraphNo == grp_no), "mark" + which, wrong);
    Expect(!used || active.back == slot.Color, "colour" + which, wrong);
  }
}

inline void CheckRegions(const frmRoiReport& form, const Program& program, Wrong& wrong) {
  if (!form.Visible()) return;
  Expect(form.sprRoiInf.MaxRows() == program.workspace.Regions.RoiCount,
         "the report has a row for each region", wrong);
}

}  // namespace dorvane
