#include "workspace/GraphList.h"

#include <algorithm>

#include "support/Rounding.h"

namespace dorvane {
namespace {

struct KindRow {
  GraphKind kind;
  const char* title;
  const char* suffix;
};

constexpr KindRow kKinds[] = {
    {GraphKind::Smooth, kTitleSmooth, "SMT"},
    {GraphKind::BackGraund, kTitleBackGraund, "BAK"},
    {GraphKind::BackRemv, kTitleBackRemv, "RMD"},
    {GraphKind::Fit, kTitleFit, "FIT"},
};
constexpr const char* kRawSuffix = "RAW";

constexpr const char* kCaptionHead = "Dorvane (Data Analyze) --- ";

// Which windows show curves of their own, after a graph has been set into one of them.
void UpdateFilePile(const GraphList& list, int win_no) {
  ViewState& view = list.view;
  if (view.ExpandOn == kFalse) {
    view.FilePile[win_no] = kTrue;
    if (view.PileUpOn != kFalse && win_no == 0) view.FilePile[1] = kFalse;
  }
  if (win_no == 1 && view.PileUpOn == kFalse && view.ExpandOn != kFalse) {
    view.ExpandOn = kFalse;
    list.listener.WindowStyleChanged();
  }
}

// The selection of each window and the current row stay on their graphs when the rows from `from`
// on move by `step`.
void FollowRows(ViewState& view, int from, int step) {
  const auto follow = [from, step](std::int16_t& row) {
    if (row >= from) row = ToInt16(std::clamp(row + step, 0, kRows - 1));
  };
  for (std::int16_t& row : view.SelectedRow) follow(row);
  follow(view.GraphNo);
}

// A row past the last graph gives way to the graph before it.
void StayOnGraphs(const Workspace& workspace, ViewState& view) {
  const auto stay = [&workspace](std::int16_t& row) {
    while (row > 0 && workspace.Slots[row].State == kRowEmpty) --row;
  };
  for (std::int16_t& row : view.SelectedRow) stay(row);
  stay(view.GraphNo);
}

// The captions name the graph that commands work on.
void NameCurrentGraph(const GraphList& list) {
  ViewState& view = list.view;
  const std::string& title = list.workspace.Slots[view.GraphNo].Title;
  view.Caption = kCaptionHead + title;
  view.CloseGraphCaption = "Close Graph(" + title + ")";
  list.listener.CaptionChanged();
}

// The new window shows the curve before the old one loses it, so that its marks can be taken along.
void MoveToWindow(const GraphList& list, GraphSlot& slot, int win_no) {
  const std::int16_t old = slot.WinNo;
  slot.WinNo = ToInt16(win_no);
  list.listener.SpectrumShown(win_no, slot.DataNo);
  list.listener.SpectrumRemoved(old, slot.DataNo);
}

// Takes the graph of a row, 0..9, away; its row stays.
void EmptyRow(const GraphList& list, int grp_no) {
  Workspace& workspace = list.workspace;
  GraphSlot& slot = workspace.Slots[grp_no];
  const std::int16_t data_no = slot.DataNo;
  workspace.Channels[data_no].Counts.fill(0);
  list.listener.SpectrumRemoved(slot.WinNo, data_no);
  list.listener.SelectionRowCleared(grp_no);
  slot.State = kRowEmpty;
  --workspace.GrpCount;
  workspace.DataUse[data_no] = 0;
  Add_cboGraphSel(list);
  list.listener.CheckBoxesFilled();
}

// Runs `clear` on a row, then closes the gap. Nothing for an empty list.
template <typename Clear>
void ClearAndClose(const GraphList& list, int grp_no, const Clear& clear) {
  Workspace& workspace = list.workspace;
  const int last = workspace.GrpCount - 1;
  if (last < 0) return;
  const int win_no = workspace.Slots[grp_no].WinNo;
  clear(list, grp_no);
  // KEPT: the gap closes also when the user has kept the data: the spectrum then stays taken
  // without a row, and GrpCount one too high.
  for (int i = grp_no + 1; i <= std::min(last, kRows - 1); ++i) {
    workspace.Slots[i - 1] = workspace.Slots[i];
  }
  workspace.Slots[std::min(last, kRows - 1)] = GraphSlot{};
  FollowRows(list.view, grp_no + 1, -1);
  StayOnGraphs(workspace, list.view);
  list.view.DataNo = workspace.Slots[list.view.GraphNo].DataNo;
  list.listener.SelectionListFilled();
  Add_cboGraphSel(list);
  list.listener.CheckBoxesFilled();
  list.listener.RedrawWanted(win_no);
  NameCurrentGraph(list);
}

}  // namespace

GraphKind KindOf(std::string_view title) {
  for (const KindRow& row : kKinds) {
    if (title == row.title) return row.kind;
  }
  return GraphKind::Raw;
}

const GraphSlot* RawGraphOf(const Workspace& workspace, int grp_no) {
  const auto is_raw = [](const GraphSlot& slot) {
    return slot.State != kRowEmpty && KindOf(slot.Title) == GraphKind::Raw;
  };
  const auto& slots = workspace.Slots;
  if (is_raw(slots[grp_no])) return &slots[grp_no];
  const auto raw = std::find_if(slots.begin(), slots.end(), is_raw);
  return raw == slots.end() ? nullptr : &*raw;
}

const char* SuffixOf(GraphKind kind) {
  for (const KindRow& row : kKinds) {
    if (row.kind == kind) return row.suffix;
  }
  return kRawSuffix;
}

std::int16_t GetGraphDataNo(const GraphList& list, int grp_no) {
  return list.workspace.Slots[grp_no == -1 ? list.view.GraphNo : grp_no].DataNo;
}

std::int16_t GetGraphSpace(const GraphList& list, int take) {
  Workspace& workspace = list.workspace;
  for (std::int16_t data_no = 0; data_no < kFreeSpectra; ++data_no) {
    if (workspace.DataUse[data_no] != 0) continue;
    if (take == -1) {
      workspace.DataUse[data_no] = kTrue;
      ++workspace.GrpCount;
    }
    return data_no;
  }
  list.dialogs.Message("GetGraphSpace: Notting Space!");
  return -1;
}

std::int16_t ShiftGraph(const GraphList& list, int grp_no, int dir) {
  Workspace& workspace = list.workspace;
  const int last = workspace.GrpCount - 1;
  if (last < 0) {
    list.dialogs.Message("ShiftGraph: Data Notting!");
    return 0;
  }
  if (dir > 0) {
    if (last >= kRows - 1) {
      list.dialogs.Message("ShiftGraph: List Over!");
      return 0;
    }
    for (int i = last; i >= grp_no; --i) workspace.Slots[i + 1] = workspace.Slots[i];
    workspace.Slots[grp_no].State = kRowEmpty;
    FollowRows(list.view, grp_no, 1);
  } else {
    if (grp_no <= 0) {
      list.dialogs.Message("ShiftGraph: List Under!");
      return 0;
    }
    for (int i = grp_no; i <= last; ++i) workspace.Slots[i - 1] = workspace.Slots[i];
    workspace.Slots[last].State = kRowEmpty;
    FollowRows(list.view, grp_no, -1);
  }
  list.listener.SelectionListFilled();
  return -1;
}

std::int16_t InsertGraph(const GraphList& list) {
  return ShiftGraph(list, 0, 1) == -1 ? GetGraphSpace(list, -1) : std::int16_t{-1};
}

void SetGraph(const GraphList& list, int win_no, int grp_no, int data_no, std::string_view title) {
  Workspace& workspace = list.workspace;
  GraphSlot& slot = workspace.Slots[grp_no];
  slot.DataNo = ToInt16(data_no);
  slot.State = kRowSaved;
  slot.Disp = kTrue;
  slot.WinNo = ToInt16(win_no);
  slot.Color = workspace.ColorTbl[data_no];
  if (!title.empty()) slot.Title = title;
  Add_cboGraphSel(list);
  workspace.MaxCh = std::max(workspace.MaxCh, workspace.Channels[data_no].Count);
  list.listener.SpectrumShown(win_no, data_no);
  UpdateFilePile(list, win_no);
  list.listener.CheckBoxesFilled();
}

std::int16_t ClearGrp(const GraphList& list, int grp_no) {
  Workspace& workspace = list.workspace;
  // KEPT: -1 whatever happens, also after an answer that keeps the data; the callers count on no
  // other value.
  constexpr std::int16_t kOk = -1;
  if (workspace.GrpCount <= 0 || grp_no >= kRows) return kOk;
  if (ConfirmUnsaved(list) != 0) return kOk;
  EmptyRow(list, grp_no);
  return kOk;
}

void DeleteGraph(const GraphList& list, int grp_no) {
  ClearAndClose(list, grp_no, ClearGrp);
}

void RemoveGraph(const GraphList& list, int grp_no) {
  ClearAndClose(list, grp_no, EmptyRow);
}

std::int16_t ClearAllGrp(const GraphList& list) {
  std::int16_t ok = -1;
  for (int grp_no = 0; grp_no < kRows && ok != 0; ++grp_no) ok = ClearGrp(list, grp_no);
  for (int win_no = 0; win_no < kWindows; ++win_no) list.listener.PeakLinesCleared(win_no);
  return ok;
}

std::int16_t ConfirmUnsaved(const GraphList& list) {
  // KEPT: Yes drops the data, though the text reads the other way round, and every unsaved row is
  // asked about, whichever graph is to go: the answers are habits of the users.
  for (int grp_no = 0; grp_no < kRows; ++grp_no) {
    if (list.workspace.Slots[grp_no].State != kRowUnsaved) continue;
    Question question;
    question.text = "File No Save.  Grp=" + std::to_string(grp_no + 1) + " (Do you Cansel?)";
    if (!list.dialogs.AskYesNo(question)) return kTrue;
  }
  return 0;
}

std::int16_t GetRealWinNo(const GraphList& list) {
  return list.view.PileUpOn != kFalse ? std::int16_t{0} : list.view.CurWin;
}

std::int16_t GetGrpNo(const GraphList& list) {
  return std::max<std::int16_t>(list.view.SelectedRow[GetRealWinNo(list)], 0);
}

std::int16_t GetGrpNo2(const GraphList& list) {
  const auto taken = std::count_if(list.workspace.DataUse.begin(), list.workspace.DataUse.end(),
                                   [](std::int16_t use) { return use != 0; });
  return ToInt16(std::max<std::int64_t>(taken - (GetGrpNo(list) + 1), 0));
}

std::array<std::string, kRows> ResetSlotNames(const GraphList& list) {
  std::array<std::string, kRows> names;
  for (int grp_no = 0; grp_no < kRows; ++grp_no) {
    const GraphSlot& slot = list.workspace.Slots[grp_no];
    if (slot.State == kRowEmpty) continue;
    names[static_cast<std::size_t>(grp_no)] = SuffixOf(KindOf(slot.Title));
  }
  return names;
}

void Add_cboGraphSel(const GraphList& list) {
  list.listener.SelectorFilled();
}

void Change_cboGrphSel(const GraphList& list, int win_no, int grp_no) {
  list.view.SelectedRow[win_no] = ToInt16(grp_no);
  list.listener.SelectorRowSelected(win_no, grp_no);
  list.view.GraphNo = GetGrpNo(list);
  list.view.DataNo = list.workspace.Slots[list.view.GraphNo].DataNo;
  for (int window = 0; window < kWindows; ++window) list.listener.RedrawWanted(window);
  list.listener.UnitAxisChanged();
  list.listener.CursorMoved();
  NameCurrentGraph(list);
}

void ChgValue_chkGrp(const GraphList& list, int win_no, int grp_no, bool value) {
  GraphSlot& slot = list.workspace.Slots[grp_no];
  if (slot.State == kRowEmpty) return;
  if (slot.WinNo != win_no) MoveToWindow(list, slot, win_no);
  slot.Disp = value ? kTrue : kFalse;
  list.listener.GraphShown(win_no, slot.DataNo, value);
  list.listener.CheckBoxesFilled();
  list.listener.RedrawWanted(win_no);
}

void ChgStrColor_chkGrp(const GraphList& list, int win_no, int grp_no, Color color) {
  GraphSlot& slot = list.workspace.Slots[grp_no];
  if (slot.State == kRowEmpty) return;
  slot.Color = color;
  list.listener.GraphRecolored(win_no, slot.DataNo, color);
  list.listener.CheckBoxesFilled();
  for (int window = 0; window < kWindows; ++window) list.listener.RedrawWanted(window);
}

void ChgAllCaption_chkGrp(const GraphList& list) {
  list.listener.CheckBoxesFilled();
}

void ChangeActiveWin(const GraphList& list, int win_no) {
  ViewState& view = list.view;
  const bool changed = view.CurWin != win_no;
  view.CurWin = ToInt16(win_no);
  view.GraphNo = GetGrpNo(list);
  view.DataNo = list.workspace.Slots[view.GraphNo].DataNo;
  if (view.AreaOn != kFalse && changed) {
    view.AreaStart = kNoEnd;
    view.AreaEnd = kNoEnd;
    list.listener.CursorMoved();
  }
  list.listener.WindowActivated(win_no);
  list.listener.UnitAxisChanged();
  NameCurrentGraph(list);
}

bool HoldsGraph(const Workspace& workspace, int grp_no) {
  return workspace.Slots[grp_no].State != kRowEmpty;
}

int FindRow(const Workspace& workspace, std::string_view title) {
  for (int grp_no = 0; grp_no < kRows; ++grp_no) {
    const GraphSlot& slot = workspace.Slots[grp_no];
    if (slot.State != kRowEmpty && slot.Title == title) return grp_no;
  }
  return -1;
}

int LastRowOfKind(const Workspace& workspace, GraphKind kind) {
  int last = -1;
  for (int grp_no = 0; grp_no < kRows; ++grp_no) {
    const GraphSlot& slot = workspace.Slots[grp_no];
    if (slot.State != kRowEmpty && KindOf(slot.Title) == kind) last = grp_no;
  }
  return last;
}

}  // namespace dorvane
