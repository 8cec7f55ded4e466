#include "program/PeakFit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "fitting/CalFitting.h"
#include "fitting/CalWaveSprit.h"
#include "processing/Calc.h"
#include "processing/PeakOpe.h"
#include "program/Cursor.h"
#include "program/DerivedGraphs.h"
#include "program/WaitPointer.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr double kHighestFitCount = 10000000;
constexpr double kGrowthLimit = 3;  // a fitted height above so many start heights is not accepted
constexpr int kCursorReach = 10;    // channels about the cursor that "MkIns" searches
constexpr int kCursorWidth = 20;

// First and last stored channel of a peak's region.
struct Range {
  int first = 0;
  int last = -1;
};

Range StoredRange(const ChannelBlock& block, int start, int end) {
  return {std::max(start, 0), std::min(end, block.Count - 1)};
}

Coefficients StartValues(const ChannelBlock& block, const Range& range, const PeakRec& peak,
                         std::int16_t type) {
  Coefficients p;
  p[1] = peak.Height - block.Counts[range.first];
  if (p[1] < 0) p[1] = peak.Height - block.Counts[range.last];
  if (p[1] < 0) p[1] = peak.Height;
  if (p[1] > 0) {
    p[2] = peak.Center - range.first + 1;
    p[3] = peak.HalfWidth;
  }
  if (type == kMix) {
    p[1] = 0.8 * peak.Height;
    p[4] = 0.2 * peak.Height;
  }
  return p;
}

void StoreFit(PeakRec& peak, const Range& range, const Coefficients& p, std::int16_t type) {
  peak.FitDone = kTrue;
  peak.Height = p[1];
  peak.Center = range.first + p[2] - 1;
  peak.HalfWidth = p[3];
  if (type == kMix) {
    peak.GaussRatio = Divide(p[1], p[4] + p[1]);
    peak.Height = p[4] + p[1];
    peak.BackConst = p[5];
    peak.BackSlope = p[6];
  } else {
    peak.GaussRatio = type == kGauss ? 1 : 0;
    peak.BackConst = p[4];
    peak.BackSlope = p[5];
  }
  peak.FuncType = type;
  peak.FitEngine = kEngineExpress;
}

// Of both heights of the mixed line h = g + l with the share s = g / h:
//   var h = var g + var l + 2 cov,   var s = (l^2 var g + g^2 var l - 2 g l cov) / h^4.
void MixedErrors(const Coefficients& p, const FitSummary& summary, PeakErrors& errors) {
  const double g = p[1], l = p[4], height = g + l;
  const double var_g = summary.standard_error[1] * summary.standard_error[1];
  const double var_l = summary.standard_error[4] * summary.standard_error[4];
  const double cov = summary.height_covariance;
  errors.Height = std::sqrt(std::max(var_g + var_l + 2 * cov, 0.0));
  const double var_s = l * l * var_g + g * g * var_l - 2 * g * l * cov;
  errors.GaussRatio = Divide(std::sqrt(std::max(var_s, 0.0)), height * height);
}

PeakErrors ErrorsOf(const Coefficients& p, const FitSummary& summary, std::int16_t type) {
  PeakErrors errors;
  if (summary.status != kFitEnded || summary.held) return errors;
  errors.Height = summary.standard_error[1];
  errors.Center = summary.standard_error[2];
  errors.HalfWidth = summary.standard_error[3];
  if (type == kMix) MixedErrors(p, summary, errors);
  return errors;
}

std::string ErrorText(const Coefficients& e) {
  std::string text = " 係数誤差=";
  for (int i = 1; i <= 3; ++i) text += Picture(e[i], "#0.00000 ");
  return text + Picture(e[4], "#0.00000");
}

// The peaks of the area, or without one the peak at the cursor.
PeaksInRange PeaksOf(const Program& program, const AreaRegion& area) {
  const std::int16_t data_no = program.view.DataNo;
  if (area.valid) return PeakCountIn(program.workspace, data_no, area.start, area.end);
  const int index = PeakFindAt(program.workspace, data_no, program.view.CursorCh);
  return index < 0 ? PeaksInRange{} : PeaksInRange{1, index};
}

void DeleteRange(const GraphList& list, int win_no, int grp_no, const PeaksInRange& range) {
  for (int i = range.count - 1; i >= 0; --i) PeakDelete(list, win_no, grp_no, range.first + i);
}

std::int16_t CoefficientCount(std::int16_t type) {
  return type == kMix ? 5 : 4;
}

// Puts back the table that a stopped command found, with the marks of the peaks that it worked on:
// `worked` in the present table, `found` in the one from before.
void TakeBack(const GraphList& list, int win_no, int data_no, const PeaksInRange& worked,
              const PeakTable& before, const PeaksInRange& found) {
  PeakTable& table = list.workspace.Peaks[data_no];
  for (int i = 0; i < worked.count; ++i) {
    list.listener.PeakUnmarked(win_no, data_no, table.Peaks[worked.first + i]);
  }
  table = before;
  for (int i = 0; i < found.count; ++i) {
    list.listener.PeakMarked(win_no, data_no, table.Peaks[found.first + i]);
  }
}

// Fits the peaks and removes those that are not accepted. False when the user has stopped it: some
// are fitted then, none are removed.
bool FitAndClean(Program& program, int win_no, const PeaksInRange& range) {
  Workspace& workspace = program.workspace;
  const std::int16_t data_no = program.view.DataNo;
  const std::int16_t type = workspace.FitParam.FuncType;
  std::vector<bool> accepted;
  for (int i = 0; i < range.count; ++i) {
    program.ports.progress.Report(i, range.count);
    if (program.ports.progress.Cancelled()) return false;
    const int index = range.first + i;
    PeakRec& peak = workspace.Peaks[data_no].Peaks[index];
    const PeakRec before = peak;
    accepted.push_back(FitOnePeak(program, data_no, index, type, CoefficientCount(type)).accepted);
    program.Listener().PeakUnmarked(win_no, data_no, before);
    PeakAreaCalc(workspace, data_no, index);
    program.Listener().PeakMarked(win_no, data_no, peak);
  }
  program.ports.progress.Report(range.count, range.count);
  int cut = 0;
  for (int i = 0; i < range.count; ++i) {
    if (accepted[static_cast<std::size_t>(i)]) continue;
    PeakDelete(program.List(), win_no, program.view.GraphNo, range.first + i - cut);
    ++cut;
  }
  if (cut > 0) program.ports.dialogs.Message(std::to_string(cut) + " Peaks Cuted");
  return true;
}

}  // namespace

PeakFitResult FitOnePeak(Program& program, int data_no, int index, std::int16_t type,
                         std::int16_t count) {
  PeakFitResult result;
  Workspace& workspace = program.workspace;
  if (type < kNoFunc || type > kMix) {
    program.ports.dialogs.Message("Bad Function Type!");
    return result;
  }
  const auto region = PeakGetRegion(workspace, data_no, index);
  if (!region) return result;
  const ChannelBlock& block = workspace.Channels[data_no];
  const Range range = StoredRange(block, region->start, region->end);
  if (range.last < range.first) return result;

  const int points = range.last - range.first + 1;
  std::vector<double> x(static_cast<std::size_t>(points));
  std::vector<double> y(static_cast<std::size_t>(points));
  for (int j = 0; j < points; ++j) {
    x[static_cast<std::size_t>(j)] = j + 1;
    y[static_cast<std::size_t>(j)] = block.Counts[range.first + j];
  }
  PeakRec& peak = workspace.Peaks[data_no].Peaks[index];
  Coefficients p = StartValues(block, range, peak, type);
  const double h0 = p[1];
  const FitSummary summary = CurveFit(x, y, type, count, p);
  if (summary.trace_zero) program.ports.dialogs.Message(kTraceZeroText);

  result.status = summary.status;
  result.text = summary.message;
  if (summary.status == kFitEnded) {
    result.text = ErrorText(summary.standard_error);
    result.standard_error = summary.standard_error;
  }
  // KEPT: the status does not enter: a failed fit that hands back its start values passes.
  result.accepted = p[1] >= 0 && p[3] > 0 && kGrowthLimit * h0 >= p[1];
  StoreFit(peak, range, p, type);
  peak.Errors = {};
  if (ScattersAsCounted(workspace, data_no)) peak.Errors = ErrorsOf(p, summary, type);
  return result;
}

void CalcFitSpectrum(Workspace& workspace, int source, int destination, int first, int last) {
  const PeakTable& table = workspace.Peaks[source];
  ChannelBlock& to = workspace.Channels[destination];
  if (first == -1) {
    to.Count = workspace.Channels[source].Count;
    to.Counts.fill(0);
    first = 0;
    last = table.Count - 1;
  }
  for (int k = first; k <= last; ++k) {
    const PeakRec& peak = table.Peaks[k];
    if (peak.FitDone != kTrue || peak.HalfWidth <= 0 || peak.FuncType <= 0) continue;
    const std::array q{peak.GaussRatio * peak.Height, peak.Center, peak.HalfWidth,
                       (1 - peak.GaussRatio) * peak.Height};
    for (int i = 0; i < to.Count; ++i) {
      int error = 0;
      const double y = MixFunc(i, q, error);
      if (y > 0) {
        to.Counts[i] = Narrow<std::int32_t>(std::int64_t{to.Counts[i]} +
                                            RoundToInt32(std::min(y, kHighestFitCount)));
      }
    }
  }
}

void MakeFitGraph(Program& program, int source) {
  Workspace& workspace = program.workspace;
  const GraphList list = program.List();
  // KEPT: the curve of row 0 is replaced whenever it is a fit, of whatever spectrum.
  const Destination to = HeadDestination(list, RowHasFlags(workspace, 0, FlagFit, 0));
  if (to.data_no < 0) return;
  CalcFitSpectrum(workspace, source, to.data_no, -1, -1);
  const int win_no = program.view.ExpandOn != kFalse ? 0 : GetRealWinNo(list);
  SetGraph(list, win_no, to.row, to.data_no, kTitleFit);
  workspace.Spectra[to.data_no] = workspace.Spectra[source];
  std::int16_t& flags = workspace.Spectra[to.data_no].Prop.Flags;
  flags = ToInt16(flags | FlagFit);
  workspace.Peaks[to.data_no] = workspace.Peaks[source];
  list.listener.CurveMade(to.data_no, source);
  program.view.FitMade = kTrue;
  ShowRow(program, program.view.GraphNo);
}

void FitPeak(Program& program, int win_no) {
  Workspace& workspace = program.workspace;
  std::int16_t& type = workspace.FitParam.FuncType;
  if (type < kGauss || type > kMix) type = kGauss;
  const AreaRegion area = TakeArea(program);
  if (!HoldsGraph(workspace, program.view.GraphNo)) return;
  const std::int16_t source = program.view.DataNo;
  const PeakTable before = workspace.Peaks[source];
  const PeaksInRange entered = PeaksOf(program, area);
  PeaksInRange range = entered;
  if (range.count == 0 && area.valid) {
    InsertPeaks(program, win_no, program.view.GraphNo, area);
    range = PeaksOf(program, area);
  }
  if (range.count == 0 && !area.valid) return;
  // The background of a scan belongs to the fit before this one, also where no peak is found.
  const FitBackTable back = workspace.FitBack;
  workspace.FitBack.fill(0);
  if (range.count == 0) return;

  const WaitPointer pointer(program);
  const GraphList list = program.List();
  if (!FitAndClean(program, win_no, range)) {
    TakeBack(list, win_no, source, range, before, entered);
    workspace.FitBack = back;
    return;
  }
  MakeFitGraph(program, source);
}

void InsertPeaks(Program& program, int win_no, int grp_no, const AreaRegion& area) {
  Workspace& workspace = program.workspace;
  if (!HoldsGraph(workspace, grp_no)) return;
  const GraphList list = program.List();
  const std::int16_t data_no = GetGraphDataNo(list, grp_no);
  int start = program.view.CursorCh - kCursorReach;
  int count = kCursorWidth;
  if (area.valid) {
    start = area.start;
    count = area.end - area.start + 1;
    DeleteRange(list, win_no, grp_no, PeakCountIn(workspace, data_no, start, area.end));
  }
  const FitParamSet& settings = workspace.FitParam;
  const std::vector<PeakRec> found =
      PeakSearch(workspace.Channels[data_no].Used(), start, count, settings.PeakThres,
                 settings.FuncType, program.ports.dialogs);
  int first_new = kMaxPeaks;
  int last_new = -1;
  for (const PeakRec& peak : found) {
    const int index = PeakInsert(list, win_no, grp_no, peak);
    if (index == -1) {
      program.ports.dialogs.Message("intPeakNo=-1");
      break;
    }
    first_new = std::min(first_new, index);
    last_new = std::max(last_new, index);
  }
  if (area.valid && last_new >= 0) {
    PeakFixMarkedBorders(list, win_no, grp_no, first_new, last_new);
    for (int i = first_new; i <= last_new; ++i) PeakAreaCalc(workspace, data_no, i);
  }
  program.Listener().RedrawWanted(win_no);
}

void InsertPeaksAtCursor(Program& program) {
  InsertPeaks(program, GetRealWinNo(program.List()), program.view.GraphNo, TakeArea(program));
}

void InsertAllPeaks(Program& program) {
  program.view.AreaStart = 0;
  program.view.AreaEnd = program.workspace.MaxCh;
  InsertPeaksAtCursor(program);
}

void DeletePeaks(Program& program) {
  Workspace& workspace = program.workspace;
  const GraphList list = program.List();
  const std::int16_t grp_no = program.view.GraphNo;
  const std::int16_t win_no = GetRealWinNo(list);
  const std::int16_t source = program.view.DataNo;
  const AreaRegion area = TakeArea(program);
  if (!HoldsGraph(workspace, grp_no)) return;
  const PeaksInRange range = PeaksOf(program, area);
  if (range.count == 0) return;
  DeleteRange(list, win_no, grp_no, range);
  workspace.Slots[grp_no].State = kRowUnsaved;
  if (grp_no != 0 && HoldsGraph(workspace, 0)) {
    // KEPT: the curve to calculate anew is the first of the list, whatever it shows.
    const std::int16_t fit = workspace.Slots[0].DataNo;
    CalcFitSpectrum(workspace, source, fit, -1, -1);
    workspace.Peaks[fit] = workspace.Peaks[source];
    SetGraph(list, workspace.Slots[0].WinNo, 0, fit, kTitleFit);
    list.listener.CurveMade(fit, source);
  }
  ShowRow(program, grp_no);
}

void AskAndDeletePeaks(Program& program) {
  Question question;
  question.text = "It will deletes peaks in the range of the area cursor";
  if (program.ports.dialogs.AskYesNo(question)) DeletePeaks(program);
}

}  // namespace dorvane
