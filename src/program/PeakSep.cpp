#include "program/PeakSep.h"

#include <span>
#include <vector>

#include "fitting/CalWaveSprit.h"
#include "processing/PeakOpe.h"
#include "program/Cursor.h"
#include "program/PeakFit.h"
#include "program/WaitPointer.h"

namespace dorvane {
namespace {

// The entries from `first` on, and the one behind them.
// KEPT: nothing uses that one, but the table has to have room for it.
std::vector<PeakRec> WorkList(const PeakTable& table, const PeaksInRange& group) {
  std::vector<PeakRec> work;
  for (int i = 0; i <= group.count; ++i) work.push_back(table.Peaks[group.first + i]);
  return work;
}

void StoreSplit(Program& program, int win_no, int data_no, int first,
                std::span<const PeakRec> split) {
  PeakTable& table = program.workspace.Peaks[data_no];
  for (std::size_t i = 0; i < split.size(); ++i) {
    const int index = first + static_cast<int>(i);
    PeakRec& peak = table.Peaks[index];
    program.Listener().PeakUnmarked(win_no, data_no, peak);
    peak = split[i];
    PeakAreaCalc(program.workspace, data_no, index);
    program.Listener().PeakMarked(win_no, data_no, peak);
  }
}

}  // namespace

void PeakSep(Program& program, int win_no) {
  Workspace& workspace = program.workspace;
  const AreaRegion area = TakeArea(program);
  const std::int16_t data_no = program.view.DataNo;
  // KEPT: the peak at the cursor is no group: without an area the start is -1, which ends the
  // command as channel 0 does.
  if (!HoldsGraph(workspace, program.view.GraphNo) || area.start < 1) return;
  PeaksInRange group = PeakCountIn(workspace, data_no, area.start, area.end);
  if (group.count == 0) {
    InsertPeaks(program, win_no, program.view.GraphNo, area);
    group = PeakCountIn(workspace, data_no, area.start, area.end);
  }
  if (group.count == 0) return;

  const WaitPointer pointer(program);
  std::vector<PeakRec> work = WorkList(workspace.Peaks[data_no], group);
  const auto peaks = std::span(work).first(static_cast<std::size_t>(group.count));
  // KEPT: the split region lies one channel lower than the area.
  const int count =
      WaveSplit(workspace.Channels[data_no].Used(), area.start - 1, area.end - area.start + 1,
                peaks, program.ports.dialogs, program.ports.log);
  StoreSplit(program, win_no, data_no, group.first, peaks.first(static_cast<std::size_t>(count)));
  workspace.FitBack.fill(0);
  MakeFitGraph(program, data_no);
}

}  // namespace dorvane
