#include "program/NaxFitting.h"

#include <algorithm>
#include <string_view>

#include "fitting/NaxScan.h"
#include "processing/PeakOpe.h"
#include "program/NaxRecords.h"
#include "program/PeakFit.h"

namespace dorvane {
namespace {

// An end of a scan that no box tells.
std::string_view LineOf(ScanEnd end) {
  switch (end) {
    case ScanEnd::TooManyPoints:
      return "SCAN ENDED EARLY: A GROUP OF PEAKS OVER MORE THAN 500 CHANNELS";
    case ScanEnd::TooManyResults:
      return "MORE THAN 100 PEAKS: NONE IS STORED, TRY A GREATER BG COEFFICIENT";
    case ScanEnd::Complete:
    case ScanEnd::Stopped:
      break;
  }
  return {};
}

}  // namespace

void NaxFitting(Program& program, int win_no, int data_no) {
  Workspace& workspace = program.workspace;
  const int row = RowOfSpectrum(workspace, data_no);
  if (row < 0) return;
  const auto counts = std::as_const(workspace).Channels[data_no].Used();
  const AnalysisSettings& settings = workspace.Settings;
  const int last = std::min(static_cast<int>(counts.size()), kMaxScanChannels);
  const ScanControl control = ScanSetup(settings.PeakWidthCh, settings.BgCoef, last);
  const ScanResult result = ScanSpectrum(counts, control, program.ports.progress);
  if (result.end == ScanEnd::Stopped) {
    program.ports.dialogs.Message("Failed to fit");
    return;
  }
  if (const auto line = LineOf(result.end); !line.empty()) program.ports.log.PutLog(line);
  workspace.FitBack.fill(0);
  PeakClear(program.List(), win_no, row);
  if (result.peaks.empty()) program.ports.dialogs.Message("NO PEAKS ARE FOUND");
  NaxScanStore(program, win_no, row, result.peaks);
}

void NaxScanStore(Program& program, int win_no, int grp_no, std::span<const NaxPeak> peaks) {
  if (peaks.empty() || peaks.size() > kMaxPeaks || peaks.front().position == 0) return;
  Workspace& workspace = program.workspace;
  const GraphList list = program.List();
  const std::int16_t data_no = GetGraphDataNo(list, grp_no);
  int index = 0;
  for (const NaxPeak& peak : peaks) {
    PeakInsert(list, win_no, grp_no, NaxRecord(workspace, data_no, peak, kEngineNax));
    // KEPT: the area is taken at the place of the result, not at that of the record in the table: a
    // peak that comes out left of one before it keeps the area 0.
    PeakAreaCalc(workspace, data_no, index++);
    WriteFitBack(peak, OutsideFitBack::Skip, workspace.FitBack);
  }
  PeakFixMarkedBorders(list, win_no, grp_no, 0, workspace.Peaks[data_no].Count - 1);
  MakeFitGraph(program, data_no);
}

}  // namespace dorvane
