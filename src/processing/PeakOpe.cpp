#include "processing/PeakOpe.h"

#include <array>

#include "processing/Calc.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

int DataNoOf(const GraphList& list, int grp_no) {
  return list.workspace.Slots[grp_no].DataNo;
}

bool InTable(const PeakTable& table, int index) {
  return index >= 0 && index < table.Count;
}

// KEPT: the loop reads the channel below its index, so that the valley lies one channel to the
// right of the lowest count; the left region then ends on that count.
int ValleyBetween(const ChannelBlock& channels, const PeakRec& left, const PeakRec& right) {
  const int from = RoundToInt16(left.Center);
  const int to = RoundToInt16(right.Center);
  std::int32_t minimum = channels.Counts[to];
  int valley = left.RegionEnd;
  for (int channel = from; channel <= to; ++channel) {
    const std::int32_t below = channels.Counts[channel - 1];
    if (below < minimum) {
      minimum = below;
      valley = channel;
    }
  }
  return valley;
}

}  // namespace

std::int16_t PeakInsert(const GraphList& list, int win_no, int grp_no, const PeakRec& peak) {
  const int data_no = DataNoOf(list, grp_no);
  PeakTable& table = list.workspace.Peaks[data_no];
  // KEPT: a centre of exactly 0 stands for "no peak", also in the first channel.
  if (table.Count >= kMaxPeaks || peak.Center == 0 || win_no < 0) return -1;
  list.listener.PeakMarked(win_no, data_no, peak);
  int index = 0;
  while (index < table.Count && !(peak.Center < table.Peaks[index].Center)) ++index;
  for (int i = table.Count; i > index; --i) table.Peaks[i] = table.Peaks[i - 1];
  table.Peaks[index] = peak;
  ++table.Count;
  return ToInt16(index);
}

std::int16_t PeakDelete(const GraphList& list, int win_no, int grp_no, int index) {
  const int data_no = DataNoOf(list, grp_no);
  PeakTable& table = list.workspace.Peaks[data_no];
  if (!InTable(table, index)) return -1;
  list.listener.PeakUnmarked(win_no, data_no, table.Peaks[index]);
  for (int i = index; i + 1 < table.Count; ++i) table.Peaks[i] = table.Peaks[i + 1];
  --table.Count;
  return 0;
}

void PeakClear(const GraphList& list, int win_no, int grp_no) {
  list.workspace.Peaks[DataNoOf(list, grp_no)].Count = 0;
  list.listener.PeakLinesCleared(win_no);
}

std::optional<PeakRegion> PeakGetRegion(const Workspace& workspace, int data_no, int index) {
  const PeakTable& table = workspace.Peaks[data_no];
  if (!InTable(table, index)) return std::nullopt;
  return PeakRegion{table.Peaks[index].RegionStart, table.Peaks[index].RegionEnd};
}

std::int16_t PeakFindAt(const Workspace& workspace, int data_no, double channel) {
  const PeakTable& table = workspace.Peaks[data_no];
  for (int i = 0; i < table.Count; ++i) {
    const PeakRec& peak = table.Peaks[i];
    if (peak.Center - peak.HalfWidth < channel && channel < peak.Center + peak.HalfWidth) {
      return ToInt16(i);
    }
  }
  return -1;
}

PeaksInRange PeakCountIn(const Workspace& workspace, int data_no, double from, double to) {
  const PeakTable& table = workspace.Peaks[data_no];
  PeaksInRange found;
  for (int i = 0; i < table.Count; ++i) {
    const double center = table.Peaks[i].Center;
    if (!(center >= from && center <= to)) continue;
    if (found.count == 0) found.first = i;
    ++found.count;
  }
  return found;
}

std::int16_t PeakJumpTarget(const Workspace& workspace, int data_no, int cursor_channel,
                            JumpDirection direction) {
  const PeakTable& table = workspace.Peaks[data_no];
  const auto channel_of = [&](int i) { return RoundToInt16(table.Peaks[i].Center); };
  const bool right = direction == JumpDirection::Right;
  int index = right ? 0 : table.Count - 1;
  if (right) {
    while (index < table.Count && cursor_channel > channel_of(index)) ++index;
  } else {
    while (index >= 0 && cursor_channel < channel_of(index)) --index;
  }
  if (!InTable(table, index)) return -1;
  if (cursor_channel == channel_of(index)) index += right ? 1 : -1;
  return InTable(table, index) ? ToInt16(index) : std::int16_t{-1};
}

void PeakFixBorders(const GraphList& list, int win_no, int grp_no, int first, int last) {
  const int data_no = DataNoOf(list, grp_no);
  PeakTable& table = list.workspace.Peaks[data_no];
  for (int i = first; i < last; ++i) {
    PeakRec& left = table.Peaks[i];
    PeakRec& right = table.Peaks[i + 1];
    list.listener.PeakUnmarked(win_no, data_no, left);
    list.listener.PeakUnmarked(win_no, data_no, right);
    if (left.RegionEnd <= right.RegionStart) continue;
    const int valley = ValleyBetween(list.workspace.Channels[data_no], left, right);
    left.RegionEnd = ToInt16(valley - 1);
    right.RegionStart = ToInt16(valley);
  }
}

void PeakFixMarkedBorders(const GraphList& list, int win_no, int grp_no, int first, int last) {
  PeakFixBorders(list, win_no, grp_no, first, last);
  if (last <= first) return;  // a single peak has kept its mark
  const int data_no = DataNoOf(list, grp_no);
  const PeakTable& table = list.workspace.Peaks[data_no];
  for (int i = first; i <= last; ++i) list.listener.PeakMarked(win_no, data_no, table.Peaks[i]);
}

void PeakAreaCalc(Workspace& workspace, int data_no, int index) {
  PeakRec& peak = workspace.Peaks[data_no].Peaks[index];
  const std::array<double, 4> shape = {peak.GaussRatio * peak.Height, peak.Center, peak.HalfWidth,
                                       (1 - peak.GaussRatio) * peak.Height};
  double sum = 0;
  for (int channel = 0; channel < workspace.Channels[data_no].Count; ++channel) {
    int error = 0;
    sum += MixFunc(channel, shape, error);
  }
  peak.Amplitude = sum;
}

}  // namespace dorvane
