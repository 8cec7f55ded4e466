#include "program/WindowContent.h"

#include <algorithm>

#include "display/DrawScale.h"

namespace dorvane {

bool ShowsRow(const Program& program, int win_no, const GraphSlot& slot) {
  const ViewState& view = program.view;
  const bool all = view.ExpandOn != kFalse || (view.PileUpOn != kFalse && win_no == 0);
  return slot.State != kRowEmpty && (all || slot.WinNo == win_no);
}

bool ShowsGraph(const Program& program, int win_no) {
  const auto& slots = program.workspace.Slots;
  return std::any_of(slots.begin(), slots.end(),
                     [&](const GraphSlot& slot) { return ShowsRow(program, win_no, slot); });
}

std::vector<const GraphSlot*> ShownGraphs(const Program& program, int win_no) {
  std::vector<const GraphSlot*> shown;
  for (const GraphSlot& slot : program.workspace.Slots) {
    if (slot.Disp != kFalse && ShowsRow(program, win_no, slot)) shown.push_back(&slot);
  }
  return shown;
}

std::vector<ChannelRange> RegionsOf(const Program& program, int win_no) {
  std::vector<ChannelRange> regions;
  const RoiTable& table = program.workspace.Regions;
  for (int i = 0; i < table.RoiCount; ++i) {
    const RoiRec& region = table.Rois[i];
    for (const GraphSlot& slot : program.workspace.Slots) {
      if (slot.DataNo != region.DataNo || !ShowsRow(program, win_no, slot)) continue;
      regions.push_back({true, region.Start, region.End, region.Color});
    }
  }
  return regions;
}

std::int32_t AxisHeight(const Program& program, int win_no) {
  const ViewScale& scale = program.spect.Scale(win_no);
  return scale.YMode == kLogarithmic ? kLogDecades : scale.MaxY - scale.MinY;
}

int AxisDataNo(const Program& program, int win_no) {
  const int row = std::max<int>(program.view.SelectedRow[win_no], 0);
  return program.workspace.Slots[row].DataNo;
}

}  // namespace dorvane
