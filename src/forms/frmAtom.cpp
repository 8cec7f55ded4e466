#include "forms/frmAtom.h"

#include <algorithm>
#include <utility>

#include "forms/PeriodicTable.h"
#include "program/Commands.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr const char* kOwner = "Atom";
constexpr const char* kKindCaptions[kLineKinds] = {"KAve", "Ka1", "Ka2", "Kb1",
                                                   "La1",  "Lb1", "Lg1", "Edg"};
constexpr const char* kKindTips[kLineKinds] = {"Average of both K-alpha lines",
                                               "K-alpha 1 (K-L3)",
                                               "K-alpha 2 (K-L2)",
                                               "K-beta 1 (K-M3)",
                                               "L-alpha 1 (L3-M5)",
                                               "L-beta 1 (L2-M4)",
                                               "L-gamma 1 (L2-N4)",
                                               "Absorption edge (K)"};

constexpr const char* kEditHint =
    "Choose an element, then the lines that may be marked for it. \"Mark\" shows them.";
constexpr const char* kTakeHint = "Choose an element, then the line whose energy is wanted.";
constexpr const char* kNoGraphHint = "Open a spectrum to mark lines on it.";
constexpr const char* kMarkHint = "Press elements and lines to mark them on ";
constexpr const char* kUncalibratedHint = " (no energy calibration: nothing to see yet)";

std::string HeadOf(const std::string& name, int num) {
  return name + " (" + std::to_string(num) + ")";
}

std::string TipOf(const ElementRec& record) {
  std::string tip = HeadOf(record.Element, record.Num);
  for (const ElementRec::Line& line : record.Lines) {
    if (!line.energy_kev) continue;
    tip += "\n" + line.field + "  " + Picture(*line.energy_kev, "0.0000") + " keV";
  }
  return tip;
}

// Puts a member into a set, or takes it out.
void Choose(std::set<int>& chosen, int member, bool in) {
  if (in) {
    chosen.insert(member);
  } else {
    chosen.erase(member);
  }
}

}  // namespace

frmAtom::frmAtom(Program& program, FormHost& host, ElementStore& store, SettingsStore& settings,
                 LineMarks& line_marks)
    : Form(host, "frmAtom", "Atom elements periodic Table"),
      AtomSel(StoredAtomSel(settings)),
      element(program, host, store, AtomSel),
      program_(program),
      store_(store),
      settings_(settings),
      line_marks_(line_marks) {
  for (int kind = 0; kind < kLineKinds; ++kind) {
    tglPkDisp[kind].SetCaption(kKindCaptions[kind]);
    tglPkDisp[kind].SetTip(kKindTips[kind]);
  }
  for (int num = kFirstElement; num <= kLastElement; ++num) {
    const std::string symbol(SymbolOf(num));
    tglAtom[num].SetCaption(symbol);
    tglAtom[num].SetTip(HeadOf(symbol, num));
  }
  ShowToggles();
  ConnectToggles();
  cmdElement.Click.Connect([this] { cmdElement_Click(); });
  cmdCancel.Click.Connect([this] { Hide(); });
  Shown.Connect([this] {
    if (!Visible()) element.Hide();
  });
}

void frmAtom::ConnectToggles() {
  for (int num = kFirstElement; num <= kLastElement; ++num) {
    tglAtom[num].Click.Connect([this, num] { tglAtom_Click(num); });
  }
  for (int kind = 0; kind < kLineKinds; ++kind) {
    tglPkDisp[kind].Click.Connect([this, kind] { tglPkDisp_Click(kind); });
  }
  optEdit.Click.Connect([this] {
    if (!Filling_) SetMode(Mode::Edit);
  });
  optMark.Click.Connect([this] {
    if (!Filling_) SetMode(Mode::Mark);
  });
  optTake.Click.Connect([this] {
    if (!Filling_) SetMode(Mode::Take);
  });
}

void frmAtom::Open(int grp_no, Mode mode) {
  const bool graph = HoldsGraph(program_.workspace, grp_no);
  data_no_ = graph ? program_.workspace.Slots[grp_no].DataNo : -1;
  if (element.Form_Load()) ShowTips();
  SetMode(mode);
  Show();
}

void frmAtom::OpenToTake(int grp_no, TakeLine take) {
  take_ = std::move(take);
  Open(grp_no, Mode::Take);
}

void frmAtom::EndTaking() {
  take_ = {};
  const bool taking = mode_ == Mode::Take;
  SetMode(taking ? Mode::Mark : mode_);
  if (taking) Hide();
}

void frmAtom::ShowTips() {
  for (int num = kFirstElement; num <= kLastElement; ++num) {
    if (const auto record = store_.FindByNum(num)) tglAtom[num].SetTip(TipOf(*record));
  }
}

// The toggles of the mode, as its state is.
void frmAtom::ShowToggles() {
  const bool before = std::exchange(Filling_, true);
  const bool edit = mode_ == Mode::Edit;
  const bool mark = mode_ == Mode::Mark;
  optEdit.SetPressed(edit);
  optMark.SetPressed(mark);
  optTake.SetPressed(mode_ == Mode::Take);
  optTake.SetVisible(static_cast<bool>(take_));
  const auto found = graphs_.find(data_no_);
  const GraphMarks graph = found == graphs_.end() ? GraphMarks{} : found->second;
  for (int num = kFirstElement; num <= kLastElement; ++num) {
    tglAtom[num].SetPressed(mark ? graph.elements.contains(num) : num == edited_);
  }
  for (int kind = 0; kind < kLineKinds; ++kind) {
    const bool selected = edit && edited_ != 0 && AtomSel[kind][edited_] == kTrue;
    tglPkDisp[kind].SetPressed(mark ? graph.kinds.contains(kind) : selected);
    tglPkDisp[kind].SetEnabled(mark || (edit ? edited_ != 0 : HasLine(edited_, kind)));
  }
  Filling_ = before;
  ShowHint();
}

void frmAtom::ShowHint() {
  if (mode_ == Mode::Edit) return lblHint.SetCaption(kEditHint);
  if (mode_ == Mode::Take) return lblHint.SetCaption(kTakeHint);
  const Workspace& workspace = program_.workspace;
  for (const GraphSlot& slot : workspace.Slots) {
    if (slot.State == kRowEmpty || slot.DataNo != data_no_) continue;
    const EgcCoef& egc = CalibrationOf(workspace, data_no_).EGC;
    const bool calibrated = egc[1] != 0 || egc[2] != 0;
    return lblHint.SetCaption(kMarkHint + slot.Title + (calibrated ? "." : kUncalibratedHint));
  }
  lblHint.SetCaption(kNoGraphHint);
}

frmAtom::GraphMarks* frmAtom::Target() {
  const int row = program_.view.GraphNo;
  if (data_no_ < 0 && HoldsGraph(program_.workspace, row)) {
    data_no_ = program_.workspace.Slots[row].DataNo;
  }
  return data_no_ < 0 ? nullptr : &graphs_[data_no_];
}

void frmAtom::tglAtom_Click(int num) {
  if (Filling_) return;
  const bool pressed = tglAtom[num].Pressed();
  last_ = num;
  if (mode_ != Mode::Mark) {
    edited_ = pressed ? num : 0;
  } else if (GraphMarks* graph = Target()) {
    Choose(graph->elements, num, pressed);
    MarkElement(*graph, num);
    Draw(data_no_, *graph);
  }
  ShowToggles();
}

void frmAtom::tglPkDisp_Click(int kind) {
  if (Filling_) return;
  const bool pressed = tglPkDisp[kind].Pressed();
  if (mode_ == Mode::Edit) {
    if (edited_ != 0) {
      AtomSel[kind][edited_] = pressed ? kTrue : kFalse;
      KeepAtomSel(settings_, AtomSel);
    }
  } else if (mode_ == Mode::Take) {
    HandOver(edited_, kind);
  } else if (GraphMarks* graph = Target()) {
    Choose(graph->kinds, kind, pressed);
    MarkKind(*graph, kind);
    Draw(data_no_, *graph);
  }
  ShowToggles();
}

// False when the search has told that it found nothing, which is then told once.
bool frmAtom::MarkElement(GraphMarks& graph, int num) {
  std::erase_if(graph.marks, [num](const Mark& mark) { return mark.num == num; });
  if (!graph.elements.contains(num)) return true;
  const auto found = element.FindByNum(num);
  if (!found) return false;
  for (const ElementEnergy& line : *found) {
    if (graph.kinds.contains(line.kind)) graph.marks.push_back({num, line});
  }
  return true;
}

void frmAtom::MarkKind(GraphMarks& graph, int kind) {
  std::erase_if(graph.marks, [kind](const Mark& mark) { return mark.line.kind == kind; });
  if (!graph.kinds.contains(kind)) return;
  for (const int num : graph.elements) {
    if (AtomSel[kind][num] != kTrue) continue;
    const auto found = element.FindForGraph(num, kind);
    if (!found) return;
    for (const ElementEnergy& line : *found) graph.marks.push_back({num, line});
  }
}

void frmAtom::MarkAll() {
  for (auto& [data_no, graph] : graphs_) {
    for (const int num : graph.elements) {
      if (!MarkElement(graph, num)) return;
    }
    Draw(data_no, graph);
  }
}

void frmAtom::Draw(int data_no, const GraphMarks& graph) {
  std::vector<LineMark> lines;
  for (const Mark& mark : graph.marks) lines.push_back({mark.line.energy_kev, mark.line.label});
  line_marks_.Set(kOwner, data_no, std::move(lines));
}

bool frmAtom::HasLine(int num, int kind) {
  if (num == 0) return false;
  const auto record = store_.FindByNum(num);
  return record && record->Lines[static_cast<std::size_t>(kind)].energy_kev;
}

// Whatever the table of selections says: it is about marks.
void frmAtom::HandOver(int num, int kind) {
  if (num == 0 || !take_) return;
  const auto found = element.FindForGraph(num, kind);
  if (found && !found->empty()) take_(found->front());
}

void frmAtom::SetMode(Mode mode) {
  const Mode before = std::exchange(mode_, mode);
  if (before == Mode::Edit && mode != Mode::Edit) MarkAll();
  ShowToggles();
}

void frmAtom::cmdElement_Click() {
  element.Open(last_);
}

void frmAtom::SpectrumRemoved(int WinNo, int DataNo) {
  if (!EndsGraph(program_.workspace, WinNo, DataNo)) return;
  graphs_.erase(DataNo);
  if (DataNo == data_no_) data_no_ = -1;
  ShowToggles();
}

}  // namespace dorvane
