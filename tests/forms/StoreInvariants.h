// What holds of the store, the drawing engine and the controls after every action of a user,
// whatever it was; with the exceptions that the system makes, each as narrow as it is.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "forms/MonkeyFaults.h"
#include "forms/MonkeyPorts.h"
#include "program/Program.h"

namespace dorvane {

using Wrong = std::vector<std::string>;

inline void Expect(bool holds, const std::string& rule, Wrong& wrong) {
  if (!holds) wrong.push_back(rule);
}

class StoreInvariants {
 public:
  // Judges the state after an action; what the action may have changed is told by `happened`.
  Wrong Check(const Program& program, const Happened& happened) {
    Wrong wrong;
    const List list = ListOf(program.workspace);
    CheckList(program.workspace, list, happened, wrong);
    CheckRows(program.workspace, list, wrong);
    CheckSpectra(program.workspace, happened, wrong);
    CheckRegionTable(program.workspace, wrong);
    CheckView(program, wrong);
    CheckEngine(program, list, wrong);
    CheckBoxes(program, happened, wrong);
    if (IsEmpty(program.workspace, list)) opened_in_vain_ = false;
    return wrong;
  }

  // A row was opened for which no number was free: rows may share a DataNo from then on.
  bool OpenedInVain() const { return opened_in_vain_; }

 private:
  // The list in numbers.
  struct List {
    int used = 0;               // rows that hold a graph
    int gaps = 0;               // empty rows in front of them
    int last = -1;              // the last of them
    int taken = 0;              // DataNo that are taken
    int uncounted = 0;          // GrpCount less `used`
    std::set<int> rows;         // DataNo that a row shows
    std::set<int> without_row;  // DataNo that are taken without a row
  };

  static List ListOf(const Workspace& workspace) {
    List list;
    for (int row = 0; row < kRows; ++row) {
      const GraphSlot& slot = workspace.Slots[row];
      if (slot.State == kRowEmpty) continue;
      list.gaps += row - list.last - 1;
      list.last = row;
      ++list.used;
      list.rows.insert(slot.DataNo);
    }
    for (int data_no = 0; data_no < kFreeSpectra; ++data_no) {
      if (workspace.DataUse[data_no] == 0) continue;
      ++list.taken;
      if (!list.rows.contains(data_no)) list.without_row.insert(data_no);
    }
    list.uncounted = workspace.GrpCount - list.used;
    return list;
  }

  static bool IsEmpty(const Workspace& workspace, const List& list) {
    return list.used == 0 && workspace.GrpCount == 0;
  }

  // Rows that a derived graph opened, each with a number taken for it, and then left: a fault came
  // before they were filled, or a background found room for the first of its two alone.
  static int RowsOpenedInVain(const Happened& happened) {
    if (std::any_of(happened.boxes.begin(), happened.boxes.end(), IsFault)) return 2;
    return happened.Has("ShiftGraph: List Over!") ? 1 : 0;
  }

  // How the list may differ from a packed one: a number loses its row when an unsaved graph was
  // kept (its row goes all the same), when a read fails (its number stays taken, its row empty),
  // when a file is read into a row that holds a graph, and when rows are opened in vain.
  void CheckList(const Workspace& workspace, const List& now, const Happened& happened,
                 Wrong& wrong) {
    const int files = happened.files_read + happened.files_not_read;
    // A graph that was to be inserted while no number was free has opened row 0 in vain: until the
    // list is empty again, row 0 may be a copy of the row before and a row may outlive its number.
    if (happened.out_of_numbers && files == 0) opened_in_vain_ = true;
    const bool emptied = IsEmpty(workspace, now);
    if (!opened_in_vain_) {
      const int opened = RowsOpenedInVain(happened);
      const int lost = files + opened + (happened.data_kept ? before_.used : 0);
      const auto born =
          std::count_if(now.without_row.begin(), now.without_row.end(),
                        [&](int each) { return !before_.without_row.contains(each); });
      Expect(born <= lost, "no taken DataNo loses its row by itself", wrong);
      const bool may_differ = lost > 0 || emptied || now.uncounted == before_.uncounted;
      Expect(may_differ, "GrpCount counts the rows", wrong);
      Expect(now.gaps <= before_.gaps + happened.files_not_read + opened, "rows are packed", wrong);
      Expect(now.last < workspace.GrpCount, "no row lies past GrpCount", wrong);
      Expect(static_cast<int>(now.rows.size()) == now.used, "no two rows show one DataNo", wrong);
      for (const int data_no : now.rows) {
        const bool taken = data_no < kFreeSpectra && workspace.DataUse[data_no] != 0;
        Expect(taken, "the DataNo of a row is taken", wrong);
      }
    }
    Expect(workspace.GrpCount >= 0 && workspace.GrpCount <= now.taken,
           "GrpCount is at most the number of taken DataNo", wrong);
    before_ = now;
  }

  static void CheckRows(const Workspace& workspace, const List&, Wrong& wrong) {
    for (const GraphSlot& slot : workspace.Slots) {
      if (slot.State == kRowEmpty) continue;
      Expect(slot.State == kRowSaved || slot.State == kRowUnsaved, "State is 0, 1 or 2", wrong);
      Expect(slot.DataNo >= 0 && slot.DataNo < kSpectra, "DataNo is in 0..13", wrong);
      Expect(slot.WinNo == 0 || slot.WinNo == 1, "WinNo is 0 or 1", wrong);
      Expect(slot.Disp == kTrue || slot.Disp == kFalse, "Disp is -1 or 0", wrong);
    }
    for (const std::int16_t use : workspace.DataUse) {
      Expect(use == kTrue || use == kFalse, "DataUse is -1 or 0", wrong);
    }
  }

  static bool Sorted(const PeakTable& table) {
    for (int i = 0; i + 1 < table.Count; ++i) {
      if (table.Peaks[i + 1].Center < table.Peaks[i].Center) return false;
    }
    return true;
  }
  static bool Finite(const PeakTable& table) {
    for (int i = 0; i < table.Count; ++i) {
      const PeakRec& peak = table.Peaks[i];
      for (const double each : {peak.Center, peak.Height, peak.HalfWidth, peak.GaussRatio,
                                peak.BackConst, peak.BackSlope, peak.Amplitude}) {
        if (!std::isfinite(each)) return false;
      }
    }
    return true;
  }

  // Tables come in order, and lose it only by a fit, which moves centres and leaves the entries
  // where they are, or with a file that holds such a table; copies are as their source.
  void CheckSpectra(const Workspace& workspace, const Happened& happened, Wrong& wrong) {
    Expect(workspace.MaxCh >= 4096 && workspace.MaxCh <= kMaxChannels, "MaxCh is in 4096..8192",
           wrong);
    bool had_unsorted = false;
    bool had_infinite = false;
    for (int data_no = 0; data_no < kSpectra; ++data_no) {
      had_unsorted = had_unsorted || unsorted_[static_cast<std::size_t>(data_no)];
      had_infinite = had_infinite || infinite_[static_cast<std::size_t>(data_no)];
    }
    for (int data_no = 0; data_no < kSpectra; ++data_no) {
      const auto count = workspace.Channels[data_no].Count;
      Expect(count >= 0 && count <= workspace.MaxCh, "a channel count is in 0..MaxCh", wrong);
      const PeakTable& table = workspace.Peaks[data_no];
      Expect(table.Count >= 0 && table.Count <= kMaxPeaks, "a peak count is in 0..100", wrong);
      if (table.Count < 0 || table.Count > kMaxPeaks) continue;
      const bool fitted = std::any_of(table.Peaks.begin(), table.Peaks.begin() + table.Count,
                                      [](const PeakRec& peak) { return peak.FitDone != kFalse; });
      const bool may_lose =
          happened.files_read + happened.files_not_read > 0 || had_unsorted || fitted;
      Expect(Sorted(table) || may_lose, "peaks ascend by Center", wrong);
      Expect(Finite(table) || happened.files_read + happened.files_not_read > 0 || had_infinite,
             "peaks are finite", wrong);
      unsorted_[static_cast<std::size_t>(data_no)] = !Sorted(table);
      infinite_[static_cast<std::size_t>(data_no)] = !Finite(table);
    }
  }

  static void CheckRegionTable(const Workspace& workspace, Wrong& wrong) {
    const RoiTable& table = workspace.Regions;
    Expect(table.RoiCount >= 0 && table.RoiCount <= kMaxRois, "RoiCount is in 0..10", wrong);
    for (int i = 0; i < std::clamp<int>(table.RoiCount, 0, kMaxRois); ++i) {
      const RoiRec& roi = table.Rois[i];
      const bool ascends = i == 0 || table.Rois[i - 1].Start <= roi.Start;
      Expect(ascends, "regions ascend by Start", wrong);
      Expect(roi.DataNo >= 0 && roi.DataNo < kSpectra, "a region's DataNo is in 0..13", wrong);
      Expect(roi.Start >= 0 && roi.Start < roi.End && roi.End <= workspace.MaxCh,
             "a region's ends ascend within the channels", wrong);
      Expect(std::isfinite(roi.Total) && std::isfinite(roi.PeakVal), "a region's sums are finite",
             wrong);
    }
  }

  void CheckView(const Program& program, Wrong& wrong) const {
    const ViewState& view = program.view;
    const Workspace& workspace = program.workspace;
    Expect(view.CurWin == 0 || view.CurWin == 1, "CurWin is 0 or 1", wrong);
    Expect(view.GraphNo >= 0 && view.GraphNo < kRows, "GraphNo is in 0..9", wrong);
    Expect(opened_in_vain_ || view.DataNo == workspace.Slots[view.GraphNo].DataNo,
           "DataNo is that of GraphNo", wrong);
    for (const std::int16_t row : view.SelectedRow) {
      Expect(row >= -1 && row < kRows, "SelectedRow is in -1..9", wrong);
    }
    Expect(view.CursorCh >= 0 && view.CursorCh <= workspace.MaxCh, "CursorCh is in 0..MaxCh",
           wrong);
    Expect(std::isfinite(view.CursorExact), "the exact cursor is finite", wrong);
    Expect(view.SpanCh >= 1 && view.SpanCh <= workspace.MaxCh, "SpanCh is in 1..MaxCh", wrong);
    Expect(view.StartCh >= 0 && view.StartCh + view.SpanCh <= workspace.MaxCh,
           "the range ends within the channels", wrong);
    for (const std::int16_t end : {view.AreaStart, view.AreaEnd, view.RoiStart, view.RoiEnd}) {
      Expect(end >= kNoEnd && end <= workspace.MaxCh, "ends lie within the channels", wrong);
    }
    Expect(view.HeightY >= 1, "the height is positive", wrong);
    Expect(!Waits(view.Pointer), "the pointer is back to normal", wrong);
    Expect(!(view.AutoScale != kFalse && view.NorScale != kFalse),
           "automatic and normal scale exclude each other", wrong);
    Expect(!(view.PileUpOn != kFalse && view.FilePile[0] == kFalse && view.ExpandOn != kFalse),
           "the first window of a pile shows it", wrong);
  }

  // A curve whose number has lost its row stays drawn. Nothing else is drawn that no row shows.
  // An expansion shows the first window's arrays; what the second has of its own waits beneath it.
  void CheckEngine(const Program& program, const List& list, Wrong& wrong) {
    const Workspace& workspace = program.workspace;
    const bool expanded = program.spect.AliasView() != 0;
    const bool piled = program.view.PileUpOn != kFalse;
    for (int view = 0; view < (expanded ? 1 : kWindows); ++view) {
      for (int data_no = 0; data_no < kSpectra; ++data_no) {
        const Curve& curve = program.spect.CurveOf(view, data_no);
        const GraphSlot* slot = RowOf(workspace, data_no);
        const std::string which = " (DataNo " + std::to_string(data_no) + ")";
        const bool leftover =
            KeepsLeftover(view, data_no, curve.Valid != kFalse && slot == nullptr);
        if (opened_in_vain_) continue;
        if (slot == nullptr) {
          const bool kept = leftover || list.without_row.contains(data_no);
          Expect(curve.Valid == kFalse || kept, "what is drawn has a row" + which, wrong);
          continue;
        }
        const int own = piled ? 0 : slot->WinNo;
        if (own != view) {
          Expect(curve.Valid == kFalse || expanded, "a curve is in its window alone" + which,
                 wrong);
          continue;
        }
        Expect(curve.Valid != kFalse, "a row's curve is registered" + which, wrong);
        Expect(curve.Shown == slot->Disp, "a curve is shown as its row says" + which, wrong);
        Expect(curve.Color == slot->Color, "a curve has its row's colour" + which, wrong);
        const auto counts = workspace.Channels[data_no].Used();
        Expect(std::equal(counts.begin(), counts.end(), curve.Counts.begin()),
               "a curve shows its counts" + which, wrong);
      }
    }
  }
  // Curves that have lost their rows while a row was opened in vain stay until they are cleared.
  bool KeepsLeftover(int view, int data_no, bool without_row) {
    const std::pair place{view, data_no};
    if (opened_in_vain_ && without_row) left_in_vain_.insert(place);
    if (!without_row) left_in_vain_.erase(place);
    return left_in_vain_.contains(place);
  }
  static const GraphSlot* RowOf(const Workspace& workspace, int data_no) {
    for (const GraphSlot& slot : workspace.Slots) {
      if (slot.State != kRowEmpty && slot.DataNo == data_no) return &slot;
    }
    return nullptr;
  }

  static void CheckBoxes(const Program& program, const Happened& happened, Wrong& wrong) {
    for (const std::string& box : happened.boxes) {
      if (!IsFault(box) || IsStated(program, happened, box)) continue;
      wrong.push_back("a fault came up in a box: " + box);
    }
  }

  List before_;
  bool opened_in_vain_ = false;
  std::set<std::pair<int, int>> left_in_vain_;  // view, DataNo
  std::array<bool, kSpectra> unsorted_{};
  std::array<bool, kSpectra> infinite_{};
};

}  // namespace dorvane
