#include "program/NaxManualFit.h"

#include "processing/PeakOpe.h"
#include "program/NaxRecords.h"
#include "program/PeakFit.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

// The fit and the boxes of its regular ends.
std::int16_t FitRegion(Program& program, int win_no, int row, const ManualFitList& list) {
  Workspace& workspace = program.workspace;
  const FitBackTable before = workspace.FitBack;
  workspace.FitBack.fill(0);
  NaxRegion region;
  if (COND(workspace.Channels[workspace.Slots[row].DataNo].Used(), list, region) != 0) {
    program.ports.dialogs.Message("Error in Function COND");
    return -1;
  }
  const NaxFitSummary summary =
      DampedLsq(region, NaxLimits{}, program.ports.log, program.ports.progress);
  if (summary.stopped) workspace.FitBack = before;
  if (!summary.ok) {
    program.ports.dialogs.Message("Failed to fit");
    return -1;
  }
  NaxFitStore(program, win_no, row, summary.peaks);
  return 0;
}

}  // namespace

std::int16_t NaxManualFit(Program& program, int win_no, int data_no, const ManualFitList& list) {
  const int row = RowOfSpectrum(program.workspace, data_no);
  if (row < 0) return -1;
  try {
    return FitRegion(program, win_no, row, list);
  } catch (const Fault&) {
    program.ports.dialogs.Message("Can not fit");
    return -1;
  }
}

void NaxFitStore(Program& program, int win_no, int grp_no, std::span<const NaxPeak> peaks) {
  if (peaks.empty() || peaks.size() > kMaxPeaks || peaks.front().position == 0) return;
  Workspace& workspace = program.workspace;
  const GraphList list = program.List();
  const std::int16_t data_no = GetGraphDataNo(list, grp_no);
  for (const NaxPeak& peak : peaks) {
    // KEPT: a region fit counts as made by hand, which the reports and the lattice grids tell apart
    // from a scan by the number of the other family.
    const PeakRec record = NaxRecord(workspace, data_no, peak, kEngineExpress);
    PeakAreaCalc(workspace, data_no, PeakInsert(list, win_no, grp_no, record));
    WriteFitBack(peak, OutsideFitBack::Fault, workspace.FitBack);
  }
  PeakFixMarkedBorders(list, win_no, grp_no, 0, workspace.Peaks[data_no].Count - 1);
  MakeFitGraph(program, data_no);
}

}  // namespace dorvane
