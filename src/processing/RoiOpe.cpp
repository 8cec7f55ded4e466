#include "processing/RoiOpe.h"

#include <algorithm>

#include "support/Rounding.h"

namespace dorvane {
namespace {

bool InTable(const RoiTable& table, int index) {
  return index >= 0 && index < table.RoiCount;
}

bool BelongsTo(const RoiRec& roi, int data_no) {
  return data_no == kAnySpectrum || roi.DataNo == data_no;
}

void Mark(const GraphList& list, int win_no, const RoiRec& roi) {
  list.listener.RoiMarked(win_no, roi.DataNo, roi.Start, roi.End, roi.Color);
}

void Unmark(const GraphList& list, int win_no, const RoiRec& roi) {
  list.listener.RoiUnmarked(win_no, roi.DataNo, roi.Start, roi.End, roi.Color);
}

// Calls `visit` with window and region for each region whose spectrum is in the list.
template <typename Visit>
void ForEachShown(const GraphList& list, Visit visit) {
  const RoiTable& table = list.workspace.Regions;
  for (int i = 0; i < table.RoiCount; ++i) {
    const RoiRec& roi = table.Rois[i];
    for (const GraphSlot& slot : list.workspace.Slots) {
      if (slot.State != kRowEmpty && slot.DataNo == roi.DataNo) visit(slot.WinNo, roi);
    }
  }
}

}  // namespace

std::int16_t RoiAdd(const GraphList& list, int win_no, int data_no, int start, int end,
                    Color color) {
  RoiTable& table = list.workspace.Regions;
  if (table.RoiCount >= kMaxRois || data_no < 0 || data_no >= kSpectra) return -1;
  RoiRec roi;
  roi.DataNo = ToInt16(data_no);
  roi.Start = ToInt16(start);
  roi.End = ToInt16(end);
  roi.Color = color;
  Mark(list, win_no, roi);
  int index = 0;
  while (index < table.RoiCount && !(roi.Start < table.Rois[index].Start)) ++index;
  for (int i = table.RoiCount; i > index; --i) table.Rois[i] = table.Rois[i - 1];
  table.Rois[index] = roi;
  ++table.RoiCount;
  RoiCalc(list.workspace, index);
  list.listener.RegionsChanged();
  return ToInt16(index);
}

// KEPT: a changed region keeps its place, so that whoever walks through the table by index meets no
// region twice; the next RoiAdd goes in front of the first that starts later, sorted or not.
std::int16_t RoiChange(const GraphList& list, int win_no, int index, int start, int end,
                       Color color) {
  RoiTable& table = list.workspace.Regions;
  if (!InTable(table, index)) return -1;
  RoiRec& roi = table.Rois[index];
  Unmark(list, win_no, roi);
  roi.Start = ToInt16(start);
  roi.End = ToInt16(end);
  roi.Color = color;
  RoiCalc(list.workspace, index);
  Mark(list, win_no, roi);
  list.listener.RegionsChanged();
  return 0;
}

std::optional<RoiRange> RoiGet(const Workspace& workspace, int index) {
  if (!InTable(workspace.Regions, index)) return std::nullopt;
  const RoiRec& roi = workspace.Regions.Rois[index];
  return RoiRange{roi.Start, roi.End, roi.Color};
}

std::int16_t RoiDelete(const GraphList& list, int win_no, int index) {
  RoiTable& table = list.workspace.Regions;
  if (!InTable(table, index)) return -1;
  Unmark(list, win_no, table.Rois[index]);
  for (int i = index; i + 1 < table.RoiCount; ++i) table.Rois[i] = table.Rois[i + 1];
  --table.RoiCount;
  list.listener.RegionsChanged();
  return 0;
}

// KEPT: the ends themselves are outside, so that a cursor on the border that two regions share is
// in neither.
std::int16_t RoiFind(const Workspace& workspace, int data_no, int channel) {
  const RoiTable& table = workspace.Regions;
  for (int i = 0; i < table.RoiCount; ++i) {
    const RoiRec& roi = table.Rois[i];
    if (BelongsTo(roi, data_no) && roi.Start < channel && channel < roi.End) return ToInt16(i);
  }
  return -1;
}

RoisInRange RoiCountIn(const Workspace& workspace, int data_no, int from, int to) {
  RoisInRange found;
  const RoiTable& table = workspace.Regions;
  for (int i = 0; i < table.RoiCount; ++i) {
    const RoiRec& roi = table.Rois[i];
    if (!BelongsTo(roi, data_no) || roi.Start < from || roi.End > to) continue;
    if (found.count == 0) found.first = i;
    ++found.count;
  }
  return found;
}

void RoiCalc(Workspace& workspace, int index) {
  if (!InTable(workspace.Regions, index)) return;
  RoiRec& roi = workspace.Regions.Rois[index];
  const auto counts = std::as_const(workspace).Channels[roi.DataNo].Used();
  const auto last = std::min<std::int64_t>(roi.End, std::ssize(counts) - 1);
  roi.PeakVal = 0;
  // KEPT: a region without counts has its peak in channel 0, not at its start: the search begins
  // with the height 0 there.
  roi.PeakCh = 0;
  roi.Total = 0;
  for (std::int64_t channel = std::max<std::int64_t>(roi.Start, 0); channel <= last; ++channel) {
    const double count = counts[static_cast<std::size_t>(channel)];
    if (count > roi.PeakVal) {
      roi.PeakVal = count;
      roi.PeakCh = static_cast<double>(channel);
    }
    roi.Total += count;
  }
}

std::int16_t RoiJumpTarget(const Workspace& workspace, int cursor_channel, int direction) {
  const RoiTable& table = workspace.Regions;
  const auto peak_at = [&table](int i) { return RoundToInt16(table.Rois[i].PeakCh); };
  const int step = 2 * direction - 1;
  int index = direction == 0 ? table.RoiCount - 1 : 0;
  while (InTable(table, index) && step * (peak_at(index) - cursor_channel) < 0) index += step;
  if (InTable(table, index) && peak_at(index) == cursor_channel) index += step;
  return InTable(table, index) ? ToInt16(index) : std::int16_t{-1};
}

void RoiDrawAll(const GraphList& list) {
  ForEachShown(list, [&](int win_no, const RoiRec& roi) { Mark(list, win_no, roi); });
  for (int win_no = 0; win_no < kWindows; ++win_no) list.listener.RedrawWanted(win_no);
}

void RoiClear(const GraphList& list) {
  RoiTable& table = list.workspace.Regions;
  if (table.RoiCount == 0) return;
  ForEachShown(list, [&](int win_no, const RoiRec& roi) { Unmark(list, win_no, roi); });
  table.RoiCount = 0;
  list.listener.RegionsChanged();
}

AreaRegion MarkedArea(const ViewState& view) {
  if (view.AreaStart == kNoEnd || view.AreaEnd == kNoEnd || view.AreaStart == view.AreaEnd) {
    return {};
  }
  const auto [start, end] = std::minmax(view.AreaStart, view.AreaEnd);
  return {start, end, true};
}

AreaRegion GetRegions(ViewState& view) {
  const AreaRegion area = MarkedArea(view);
  view.AreaStart = kNoEnd;
  view.AreaEnd = kNoEnd;
  return area;
}

}  // namespace dorvane
