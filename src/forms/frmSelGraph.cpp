#include "forms/frmSelGraph.h"

#include <optional>
#include <string>
#include <utility>

#include "program/Commands.h"
#include "program/MoveGraph.h"
#include "program/OpenSave.h"

namespace dorvane {
namespace {

constexpr int RowOf(int grp_no) {
  return grp_no + 1;
}
constexpr int GrpNoOf(int row) {
  return row - 1;
}

// Runs with the row of each graph that shows a spectrum.
template <typename Run>
void ForRowsOf(const Workspace& workspace, int data_no, const Run& run) {
  for (int grp_no = 0; grp_no < kRows; ++grp_no) {
    if (HoldsGraph(workspace, grp_no) && workspace.Slots[grp_no].DataNo == data_no) run(grp_no);
  }
}

}  // namespace

// Filling_ holds while one of these lives.
class frmSelGraph::FillingRows {
 public:
  explicit FillingRows(bool& filling) : filling_(filling), before_(std::exchange(filling, true)) {}
  ~FillingRows() { filling_ = before_; }
  FillingRows(const FillingRows&) = delete;
  FillingRows& operator=(const FillingRows&) = delete;

 private:
  bool& filling_;
  bool before_;
};

frmSelGraph::frmSelGraph(Program& program, FormHost& host)
    : Form(host, "frmSelGraph", "Graph Select"), program_(program) {
  sprGraphSel.SetMaxRows(kRows);
  picAllow.SetVisible(false);
  picNothing.SetVisible(false);
  chkFix_Click();
  sprGraphSel.Click.Connect([this](int row, int column) { sprGraphSel_Click(row, column); });
  sprGraphSel.DblClick.Connect([this](int row, int column) { sprGraphSel_DblClick(row, column); });
  sprGraphSel.Checked.Connect([this](int row, int column) { sprGraphSel_Checked(row, column); });
  cmdOpen.Click.Connect([this] { cmdOpen_Click(); });
  cmdCut.Click.Connect([this] { cmdCut_Click(); });
  cmdOk.Click.Connect([this] { cmdOk_Click(); });
  chkFix.Click.Connect([this] { chkFix_Click(); });
  picPin.MouseDown.Connect([this](const MouseAt&) { picPin_Click(); });
  GraphSel_Repl(0);
}

void frmSelGraph::GraphSel_Repl(int show_it) {
  for (int grp_no = 0; grp_no < kRows; ++grp_no) {
    GraphSel_Delete(grp_no);
    if (!HoldsGraph(program_.workspace, grp_no)) continue;
    GraphSel_Insert(program_.workspace.Slots[grp_no].WinNo, grp_no);
  }
  ChangeCurChek(program_.view.GraphNo);
  if (show_it != 0) Show();
}

void frmSelGraph::GraphSel_Insert(int win_no, int grp_no) {
  const FillingRows filling(Filling_);
  const GraphSlot& slot = program_.workspace.Slots[grp_no];
  const int row = RowOf(grp_no);
  GridCell active = sprGraphSel.Cell(row, kActiv);
  active.back = slot.Color;
  sprGraphSel.SetCell(row, kDisp, {.is_check = true, .checked = slot.Disp != kFalse});
  sprGraphSel.SetText(row, kWin, std::to_string(win_no + 1));
  sprGraphSel.SetCell(row, kActiv, std::move(active));
  sprGraphSel.SetText(row, kFileName, slot.Title);
  sprGraphSel.SetText(row, kSampleName, program_.workspace.Spectra[slot.DataNo].SampName.Text());
}

void frmSelGraph::GraphSel_Delete(int grp_no) {
  const FillingRows filling(Filling_);
  for (int column = 1; column <= sprGraphSel.Columns(); ++column) {
    sprGraphSel.SetCell(RowOf(grp_no), column, {});
  }
}

void frmSelGraph::GraphSel_Check(int grp_no, bool value) {
  const FillingRows filling(Filling_);
  GridCell cell = sprGraphSel.Cell(RowOf(grp_no), kDisp);
  if (!cell.is_check) return;
  cell.checked = value;
  sprGraphSel.SetCell(RowOf(grp_no), kDisp, std::move(cell));
}

void frmSelGraph::ChangeCurChek(int grp_no) {
  const FillingRows filling(Filling_);
  for (int each = 0; each < kRows; ++each) {
    GridCell cell = sprGraphSel.Cell(RowOf(each), kActiv);
    cell.mark = each == grp_no && HoldsGraph(program_.workspace, each);
    sprGraphSel.SetCell(RowOf(each), kActiv, std::move(cell));
  }
}

void frmSelGraph::cmdCut_Click() {
  const int row = sprGraphSel.ActiveRow();
  if (sprGraphSel.Text(row, kWin).empty()) return;
  RunGuarded(program_, [row](Program& program) {
    DeleteGraph(program.List(), GrpNoOf(row));
    ChgAllCaption_chkGrp(program.List());
  });
}

// KEPT: the old graphs stay, and the files take the rows from the first on: whoever opens from here
// replaces graphs one by one.
void frmSelGraph::cmdOpen_Click() {
  RunGuarded(program_, FileLoad);
}

void frmSelGraph::chkFix_Click() {
  const bool fixed = chkFix.Checked();
  SetTopMost(fixed);
  picPinOn.SetVisible(fixed);
  picPinOff.SetVisible(!fixed);
}

void frmSelGraph::sprGraphSel_Checked(int row, int column) {
  if (Filling_ || column != kDisp || !HoldsGraph(program_.workspace, GrpNoOf(row))) return;
  const int grp_no = GrpNoOf(row);
  const bool checked = sprGraphSel.Cell(row, kDisp).checked;
  RunGuarded(program_, [grp_no, checked](Program& program) {
    const GraphList list = program.List();
    const int win_no = program.workspace.Slots[grp_no].WinNo;
    ChgValue_chkGrp(list, win_no, grp_no, checked);
    if (checked && win_no == GetRealWinNo(list)) Change_cboGrphSel(list, win_no, grp_no);
  });
}

void frmSelGraph::sprGraphSel_Click(int row, int column) {
  const int grp_no = GrpNoOf(row);
  if (column == kDisp || !HoldsGraph(program_.workspace, grp_no)) return;
  RunGuarded(program_, [grp_no](Program& program) {
    Change_cboGrphSel(program.List(), program.workspace.Slots[grp_no].WinNo, grp_no);
  });
}

void frmSelGraph::sprGraphSel_DblClick(int row, int column) {
  const int grp_no = GrpNoOf(row);
  if (!HoldsGraph(program_.workspace, grp_no)) return;
  if (column == kWin) MoveToOtherWindow(grp_no);
  if (column == kActiv) ChooseColorOf(grp_no);
}

void frmSelGraph::MoveToOtherWindow(int grp_no) {
  RunGuarded(program_, [grp_no](Program& program) {
    MoveGraph(program, grp_no, 1 - program.workspace.Slots[grp_no].WinNo);
  });
}

void frmSelGraph::ChooseColorOf(int grp_no) {
  const Color old_color = program_.workspace.Slots[grp_no].Color;
  SetTopMost(false);  // or the dialog would open beneath this window
  const std::optional<Color> color = program_.ports.dialogs.ChooseColor(old_color);
  SetTopMost(chkFix.Checked());
  if (!color) return;
  RunGuarded(program_, [grp_no, color](Program& program) {
    ChgStrColor_chkGrp(program.List(), program.workspace.Slots[grp_no].WinNo, grp_no, *color);
  });
}

void frmSelGraph::SpectrumShown(int /*WinNo*/, int DataNo) {
  ForRowsOf(program_.workspace, DataNo, [this](int grp_no) {
    GraphSel_Insert(program_.workspace.Slots[grp_no].WinNo, grp_no);
  });
}

void frmSelGraph::GraphShown(int /*WinNo*/, int DataNo, bool shown) {
  ForRowsOf(program_.workspace, DataNo,
            [this, shown](int grp_no) { GraphSel_Check(grp_no, shown); });
}

void frmSelGraph::GraphRecolored(int WinNo, int DataNo, Color /*color*/) {
  SpectrumShown(WinNo, DataNo);
}

// The selection of a window that isn't the real one leaves the current row where it is.
void frmSelGraph::SelectorRowSelected(int /*WinNo*/, int /*GrpNo*/) {
  ChangeCurChek(GetGrpNo(program_.List()));
}

void frmSelGraph::WindowActivated(int /*WinNo*/) {
  ChangeCurChek(program_.view.GraphNo);
}

}  // namespace dorvane
