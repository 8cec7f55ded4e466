#include "forms/CursorPanel.h"

#include <algorithm>
#include <array>

#include "processing/Units.h"
#include "program/Cursor.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

// The units of inumCursorDisp, beside the channel itself.
constexpr std::array<std::int16_t, 5> kReadoutUnits = {kUnitKeV, kUnitD, kUnitWave, kUnitQ,
                                                       kUnit2Theta};

// The first window holds all graphs of a pile.
bool IsIn(const ViewState& view, int win_no, const GraphSlot& slot) {
  return view.PileUpOn != kFalse ? win_no == 0 : slot.WinNo == win_no;
}

}  // namespace

const GraphSlot* CountedGraph(const Program& program, int win_no) {
  const ViewState& view = program.view;
  if (view.FilePile[win_no] == kFalse) return nullptr;
  const bool expanded = view.ExpandOn != kFalse;
  const GraphSlot& slot =
      program.workspace.Slots[expanded ? 0 : std::max<int>(view.SelectedRow[win_no], 0)];
  const bool here = expanded || IsIn(view, win_no, slot);
  return slot.State != kRowEmpty && here ? &slot : nullptr;
}

CursorPanel::CursorPanel(PanelWork& work)
    : work_(work),
      inumCursorCh(work.controls, "inumCursorCh", "####0"),
      updCursorX(work.controls, "updCursorX"),
      lblDispUnit(work.controls, "lblDispUnit", static_cast<int>(kReadoutUnits.size())),
      inumCursorDisp(work.controls, "inumCursorDisp", static_cast<int>(kReadoutUnits.size())),
      inumCursorCnt(work.controls, "inumCursorCnt", kWindows),
      chkArea(work.controls, "chkArea", "AREA SET"),
      chkCsrType(work.controls, "chkCsrType", "Cursor") {
  inumCursorCh.SetTip("Cursor: channel index from 0");
  updCursorX.SetTip("Cursor one channel up or down");
  chkArea.SetTip("Area cursor: drag over the graph to mark a range (Ctrl+R)");
  chkCsrType.SetTip("A cross at the count in place of the line");
  for (int i = 0; i < lblDispUnit.Size(); ++i) {
    const int unit = kReadoutUnits[static_cast<std::size_t>(i)];
    lblDispUnit[i].SetCaption(std::string(UnitLabel(unit)));
    inumCursorDisp[i].SetReadOnly(true);
    inumCursorDisp[i].SetTip("Cursor in " + std::string(UnitLabel(unit)));
  }
  for (int win_no = 0; win_no < kWindows; ++win_no) {
    inumCursorCnt[win_no].SetReadOnly(true);
    inumCursorCnt[win_no].SetTip("Count at the cursor in window " + std::to_string(win_no + 1));
  }
  inumCursorCh.Change.Connect([this] { inumCursorCh_Change(); });
  updCursorX.UpClick.Connect(
      [this] { work_.Do([](Program& program) { spnCursor_SpinUpDown(program, "+"); }); });
  updCursorX.DownClick.Connect(
      [this] { work_.Do([](Program& program) { spnCursor_SpinUpDown(program, "-"); }); });
  chkArea.Click.Connect([this] { chkArea_Click(); });
  chkCsrType.Click.Connect([this] { work_.program.Listener().CursorMoved(); });
}

void CursorPanel::inumCursorCh_Change() {
  const double channel = std::max(inumCursorCh.Value(), 0.0);
  work_.Do([channel](Program& program) { spnCursor_SpinUpDown(program, PlainNumber(channel)); });
}

void CursorPanel::chkArea_Click() {
  work_.Do([this](Program& program) {
    if (chkArea.Checked() != (program.view.AreaOn != kFalse)) ToggleAreaCursor(program);
  });
}

void CursorPanel::FillCounts() {
  const Program& program = work_.program;
  for (int win_no = 0; win_no < kWindows; ++win_no) {
    const GraphSlot* slot = CountedGraph(program, win_no);
    const int channel = program.view.CursorCh;
    const bool counted =
        slot != nullptr && channel < program.workspace.Channels[slot->DataNo].Count;
    inumCursorCnt[win_no].SetText(
        counted ? std::to_string(program.workspace.Channels[slot->DataNo].Counts[channel]) : "");
  }
}

void CursorPanel::Refresh() {
  const Workspace& workspace = work_.program.workspace;
  const ViewState& view = work_.program.view;
  work_.Fill([&] {
    inumCursorCh.SetValue(view.CursorCh);
    updCursorX.SetRange(0, workspace.MaxCh);
    updCursorX.SetValue(view.CursorCh);
    chkArea.SetChecked(view.AreaOn != kFalse);
    const bool graph = workspace.Slots[view.GraphNo].State != kRowEmpty;
    const MeasProp& source = CalibrationOf(workspace, view.DataNo);
    for (int i = 0; i < inumCursorDisp.Size(); ++i) {
      const int unit = kReadoutUnits[static_cast<std::size_t>(i)];
      const double value = ChToUnit(unit, view.CursorExact, source, workspace.Dac);
      inumCursorDisp[i].SetText(graph ? Picture(value, UnitPattern(unit)) : "");
    }
    FillCounts();
  });
}

}  // namespace dorvane
