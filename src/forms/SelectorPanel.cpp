#include "forms/SelectorPanel.h"

#include <algorithm>

#include "program/MoveGraph.h"
#include "support/NumberText.h"

namespace dorvane {

std::string SelectorText(int grp_no, const GraphSlot& slot) {
  if (slot.State == kRowEmpty) return "";
  return PadRight(std::to_string(grp_no + 1), 2) + slot.Title;
}

namespace {

std::string TipOfRow(const Workspace& workspace, const GraphSlot& slot, int win_no) {
  const std::string sample = workspace.Spectra[slot.DataNo].SampName.Text();
  std::string tip = slot.Title;
  if (!sample.empty()) tip += "\n" + sample;
  if (slot.WinNo != win_no) tip += "\nShown in window " + std::to_string(slot.WinNo + 1);
  return tip;
}

}  // namespace

SelectorPanel::SelectorPanel(PanelWork& work)
    : work_(work),
      cboGrphSel(work.controls, "cboGrphSel", kWindows),
      chkGrp(work.controls, "chkGrp", kWindows * kRows) {
  for (int win_no = 0; win_no < kWindows; ++win_no) {
    cboGrphSel[win_no].SetTip("Current graph of window " + std::to_string(win_no + 1));
    cboGrphSel[win_no].Click.Connect(
        [this, win_no] { Select(win_no, cboGrphSel[win_no].Index()); });
  }
  for (int i = 0; i < chkGrp.Size(); ++i) {
    chkGrp[i].Click.Connect([this, i] { chkGrp_Click(i); });
  }
}

void SelectorPanel::Select(int win_no, int row) {
  work_.Do([win_no, row](Program& program) {
    if (row < 0 || !HoldsGraph(program.workspace, row)) return;
    Change_cboGrphSel(program.List(), win_no, row);
    ChangeActiveWin(program.List(), win_no);
  });
}

void SelectorPanel::SelectRow(int index) {
  const int row = index % kRows;
  Select(work_.program.workspace.Slots[row].WinNo, row);
}

void SelectorPanel::chkGrp_Click(int index) {
  work_.Do([this, index](Program& program) {
    const int win_no = index / kRows;
    const int grp_no = index % kRows;
    if (!HoldsGraph(program.workspace, grp_no)) return;
    const bool on = chkGrp[index].Checked();
    if (on) MoveGraph(program, grp_no, win_no);
    ChgValue_chkGrp(program.List(), program.workspace.Slots[grp_no].WinNo, grp_no, on);
  });
}

void SelectorPanel::Refresh() {
  const Workspace& workspace = work_.program.workspace;
  std::vector<std::string> texts;
  int last = 0;
  for (int row = 0; row < kRows; ++row) {
    texts.push_back(SelectorText(row, workspace.Slots[row]));
    if (HoldsGraph(workspace, row)) last = row + 1;
  }
  texts.resize(static_cast<std::size_t>(last));
  work_.Fill([&] {
    for (int win_no = 0; win_no < kWindows; ++win_no) {
      cboGrphSel[win_no].SetItems(texts);
      const int row = work_.program.view.SelectedRow[win_no];
      cboGrphSel[win_no].SetIndex(row < last ? row : -1);
    }
    for (int i = 0; i < chkGrp.Size(); ++i) {
      const GraphSlot& slot = workspace.Slots[i % kRows];
      const bool used = slot.State != kRowEmpty;
      chkGrp[i].SetVisible(used);
      chkGrp[i].SetCaption(used ? slot.Title : "");
      chkGrp[i].SetTip(used ? TipOfRow(workspace, slot, i / kRows) : "");
      chkGrp[i].SetChecked(used && slot.WinNo == i / kRows && slot.Disp != kFalse);
    }
  });
  Filled.Fire();
}

std::optional<Color> SelectorPanel::ColorOf_chkGrp(int index) const {
  const GraphSlot& slot = work_.program.workspace.Slots[index % kRows];
  if (slot.State == kRowEmpty) return {};
  return slot.Color;
}

SelectorPanel::RowState SelectorPanel::StateOf_chkGrp(int index) const {
  const int win_no = index / kRows;
  const GraphSlot& slot = work_.program.workspace.Slots[index % kRows];
  const ViewState& view = work_.program.view;
  const bool here = slot.State != kRowEmpty && slot.WinNo == win_no;
  return {here, here && view.SelectedRow[win_no] == index % kRows, view.CurWin == win_no};
}

const GraphSlot* SelectorPanel::CurrentOf(int win_no) const {
  const int row = std::max<int>(work_.program.view.SelectedRow[win_no], 0);
  const GraphSlot& slot = work_.program.workspace.Slots[row];
  return slot.State != kRowEmpty && slot.WinNo == win_no ? &slot : nullptr;
}

std::string SelectorPanel::TitleOf(int win_no) const {
  const GraphSlot* slot = CurrentOf(win_no);
  return slot == nullptr ? "" : slot->Title;
}

std::string SelectorPanel::SampleOf(int win_no) const {
  const GraphSlot* slot = CurrentOf(win_no);
  return slot == nullptr ? "" : work_.program.workspace.Spectra[slot->DataNo].SampName.Text();
}

}  // namespace dorvane
