#include "forms/PeakCalHint.h"

namespace dorvane {
namespace {

constexpr const char* kNoPeaks = "This graph has no fitted peaks. ";

constexpr int kMostNamed = 2;

// "Smooth" (24), "a.npd" (3) and 1 more
std::string GraphsWithPeaks(const Workspace& workspace, int win_no) {
  std::string text;
  int graphs = 0;
  for (const GraphSlot& slot : workspace.Slots) {
    if (slot.State == kRowEmpty || slot.WinNo != win_no) continue;
    const int count = workspace.Peaks[slot.DataNo].Count;
    if (count == 0) continue;
    if (++graphs > kMostNamed) continue;
    text += (text.empty() ? "\"" : ", \"") + slot.Title + "\" (" + std::to_string(count) + ")";
  }
  if (graphs > kMostNamed) text += " and " + std::to_string(graphs - kMostNamed) + " more";
  return text;
}

}  // namespace

std::string PeakHint(const Workspace& workspace, int grp_no) {
  const GraphSlot& slot = workspace.Slots[grp_no];
  if (workspace.Peaks[slot.DataNo].Count > 0) return {};
  for (const int win_no : {int{slot.WinNo}, 1 - slot.WinNo}) {
    const std::string graphs = GraphsWithPeaks(workspace, win_no);
    if (graphs.empty()) continue;
    return kNoPeaks + std::string(win_no == slot.WinNo ? "This" : "The other") + " window has " +
           graphs + ": make one with peaks current, then open this form again.";
  }
  return kNoPeaks + std::string("Auto Fit (F4) finds and fits them.");
}

}  // namespace dorvane
