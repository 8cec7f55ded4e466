#include "batch/Analysis.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "batch/BatchError.h"
#include "batch/SpectrumFile.h"
#include "batch/Tables.h"
#include "fitting/NaxScan.h"
#include "processing/PeakOpe.h"
#include "processing/Units.h"
#include "program/Cursor.h"
#include "program/DerivedGraphs.h"
#include "program/LatticeNarration.h"
#include "program/NaxFitting.h"
#include "program/OpenSave.h"
#include "program/PeakFit.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

GraphKind KindToFit(FitOn fit_on) {
  switch (fit_on) {
    case FitOn::Raw:
      return GraphKind::Raw;
    case FitOn::Smooth:
      return GraphKind::Smooth;
    case FitOn::Removed:
      return GraphKind::BackRemv;
  }
  return GraphKind::Raw;
}

bool HasLine(const CrystalRec& crystal, const Hkl& hkl) {
  for (int i = 0; i < crystal.LineCount; ++i) {
    if (Hkl{crystal.H[i], crystal.K[i], crystal.L[i]} == hkl) return true;
  }
  return false;
}

// Judgment ranges in angstrom that are tried where none is given; the first is the system's own.
constexpr std::array kJudgeRanges{0.03, 0.06, 0.1, 0.16, 0.25};
constexpr double kEnoughInUse = 0.5;  // share of the fitted heights that needs no wider range

std::string LastOf(const std::vector<std::string>& messages, std::string_view otherwise) {
  return messages.empty() ? std::string(otherwise) : messages.back();
}

}  // namespace

AnalysisRun::AnalysisRun(FileLayer& files, const CrystalLibrary& library,
                         const AnalysisRequest& request, const std::string& path)
    : request_(request),
      files_(files),
      program_(std::make_unique<Program>(ports_.Join(files), "")) {
  result_.path = path;
  result_.engine = request.engine;
  Workspace& workspace = program_->workspace;
  workspace.FitParam.SmoothKind = ToInt16(std::max(request.smooth_kind, 0));
  workspace.FitParam.PeakThres = request.threshold;
  workspace.FitParam.BackInterval = request.back_interval;
  workspace.FitParam.BackTimes = request.back_times;
  workspace.Settings.BgCoef = request.bg_coefficient;
  workspace.Settings.PeakWidthCh = request.peak_width;
  try {
    Read();
    Prepare();
    if (request.engine == FitEngine::Nax) {
      FitByScan();
    } else {
      FitPeakByPeak();
    }
    TakeMessages();
    if (request.index) Index(library);
    ListPeaks();
  } catch (const Fault& fault) {
    throw BatchError(fault.what());
  }
}

void AnalysisRun::Read() {
  CheckReadable(files_, result_.path);
  if (ReadGraph(*program_, 0, 0, result_.path) != -1) {
    throw BatchError("not a whole spectrum file: " + LastOf(ports_.dialogs.messages, "Open Error"));
  }
  const SpectrumRec& record = program_->workspace.Spectra[program_->view.DataNo];
  result_.title = program_->workspace.Slots[0].Title;
  result_.sample = record.SampName.Text();
  result_.channels = program_->workspace.Channels[program_->view.DataNo].Count;
  result_.two_theta_deg = record.Prop.TwoTheta;
  result_.egc = record.Prop.EGC;
  if (result_.channels == 0) throw BatchError("the spectrum has no channels");
}

void AnalysisRun::Prepare() {
  const bool removed = request_.fit_on == FitOn::Removed;
  if (request_.smooth_kind >= 0 && request_.fit_on != FitOn::Raw) SmoothGraph(*program_);
  if (removed || request_.background) BackGroundGraph(*program_);
  const GraphList list = program_->List();
  const int row = LastRowOfKind(program_->workspace, KindToFit(request_.fit_on));
  Change_cboGrphSel(list, GetRealWinNo(list), row);
  data_no_ = program_->view.DataNo;
}

// The scan takes the whole spectrum; what lies outside of the range goes afterwards.
void AnalysisRun::FitByScan() {
  const GraphList list = program_->List();
  const int win_no = GetRealWinNo(list);
  ports_.log.lines.clear();
  NaxFitting(*program_, win_no, data_no_);
  for (const std::string& line : ports_.log.lines) ports_.dialogs.Message(line);
  if (result_.channels > kMaxScanChannels) {
    ports_.dialogs.Message("channels above " + std::to_string(kMaxScanChannels) +
                           " are not scanned; --engine express reaches them");
  }
  if (!request_.range) return;
  const PeakTable& table = program_->workspace.Peaks[data_no_];
  for (int i = table.Count - 1; i >= 0; --i) {
    const double center = table.Peaks[i].Center;
    if (center >= request_.range->first && center <= request_.range->last) continue;
    PeakDelete(list, win_no, program_->view.GraphNo, i);
  }
}

// A single peak on which the engine faults would end the fit of all: it is left out, and the others
// start afresh.
void AnalysisRun::FitPeakByPeak() {
  const auto mark_area = [this] {
    if (request_.range) {
      SetArea(*program_, request_.range->first, request_.range->last);
    } else {
      SetFullRange(*program_);
    }
  };
  mark_area();
  InsertPeaksAtCursor(*program_);
  PeakTable found = program_->workspace.Peaks[data_no_];
  while (found.Count > 0) {
    mark_area();
    try {
      FitPeak(*program_, GetRealWinNo(program_->List()));
      return;
    } catch (const Fault& fault) {
      LeaveOut(fault, found);
    }
  }
}

void AnalysisRun::LeaveOut(const Fault& fault, PeakTable& found) {
  const PeakTable& worked = program_->workspace.Peaks[data_no_];
  int faulting = 0;
  while (faulting < worked.Count && worked.Peaks[faulting].FitDone == kTrue) ++faulting;
  if (faulting >= found.Count) throw fault;
  ports_.dialogs.Message("the peak at channel " + Picture(found.Peaks[faulting].Center + 1, "0") +
                         " can't be fitted and is left out: " + fault.what());
  const GraphList list = program_->List();
  const int win_no = GetRealWinNo(list);
  const int grp_no = program_->view.GraphNo;
  PeakClear(list, win_no, grp_no);
  for (int i = 0; i < found.Count; ++i) {
    if (i != faulting) PeakInsert(list, win_no, grp_no, found.Peaks[i]);
  }
  found = program_->workspace.Peaks[data_no_];
}

int AnalysisRun::CrystalIndex(const CrystalLibrary& library) {
  if (!request_.crystal.empty()) {
    const int index = FindCrystal(library, request_.crystal);
    if (index < 0) throw BatchError("no crystal \"" + request_.crystal + "\" in the library");
    return index;
  }
  const std::string name = result_.sample.substr(0, result_.sample.find(' '));
  const int index = name.empty() ? -1 : FindCrystal(library, name);
  if (index < 0) {
    result_.notes.push_back("peaks only: the sample name \"" + result_.sample +
                            "\" tells no crystal of the library; name one with --crystal");
  }
  return index;
}

void AnalysisRun::Index(const CrystalLibrary& library) {
  const int index = CrystalIndex(library);
  if (index < 0) return;
  LatticeRequest request = request_.lattice;
  request.crystal_index = index;
  const CrystalRec& crystal = library.CrystalTable[index];
  for (const auto* lines : {&request.use_lines, &request.exclude_lines}) {
    for (const Hkl& hkl : *lines) {
      if (!HasLine(crystal, hkl))
        throw BatchError(crystal.Name + " has no line " + HklText(hkl) + " in the library");
    }
  }
  result_.indexed = true;
  result_.mode = request.mode;
  result_.temperature_c = NumberOf(request.temperature);
  result_.lattice = request_.judge_range ? RunWithin(*request_.judge_range, library, request)
                                         : RunWidening(library, request);
  result_.log = WorkRecords(*state_, program_->workspace, data_no_, request, result_.lattice);
  if (!result_.lattice.rejected.empty()) {
    result_.notes.push_back(std::to_string(result_.lattice.rejected.size()) +
                            " indexed lines left out, off by more than " +
                            Picture(100 * request.reject_beyond, "0.0##") +
                            " per cent of d (--reject)");
  }
  JudgeLattice();
}

LatticeReport AnalysisRun::RunWithin(double judge_range, const CrystalLibrary& library,
                                     const LatticeRequest& request) {
  state_ = std::make_unique<LatticeState>();
  state_->Library = library;
  program_->workspace.Settings.JudgeRange = judge_range;
  ports_.dialogs.messages.clear();
  return RunLattice(*state_, program_->workspace, data_no_, request, ports_.dialogs);
}

// The lines of a compressed crystal leave the system's own range. Where that one leaves most of the
// fitted intensity out, the range that brings most of it into the fit is taken, the narrowest of
// equals.
LatticeReport AnalysisRun::RunWidening(const CrystalLibrary& library,
                                       const LatticeRequest& request) {
  double range = kJudgeRanges.front();
  LatticeReport report = RunWithin(range, library, request);
  const double own = IntensityInUse(report);
  if (own >= kEnoughInUse) return report;
  double most = own;
  for (const double wider : kJudgeRanges) {
    const double in_use = IntensityInUse(RunWithin(wider, library, request));
    if (in_use <= most) continue;
    most = in_use;
    range = wider;
  }
  report = RunWithin(range, library, request);
  if (range > kJudgeRanges.front()) {
    result_.notes.push_back(
        "judgment range widened to " + PlainNumber(range) + " angstrom: lines with " +
        Picture(100 * most, "0") + " per cent of the fitted heights are in use, with " +
        PlainNumber(kJudgeRanges.front()) + " only " + Picture(100 * own, "0") + " (--judge)");
  }
  return report;
}

double AnalysisRun::IntensityInUse(const LatticeReport& lattice) const {
  const PeakTable& table = program_->workspace.Peaks[data_no_];
  double all = 0;
  for (int i = 0; i < table.Count; ++i) all += table.Peaks[i].Height;
  double used = 0;
  for (const LatticeLine& line : lattice.lines) {
    if (lattice.cell && line.used) used += table.Peaks[line.peak].Height;
  }
  return all > 0 ? used / all : 0;
}

void AnalysisRun::JudgeLattice() {
  const LatticeReport& lattice = result_.lattice;
  const std::string reason = LastOf(ports_.dialogs.messages, "");
  ports_.dialogs.messages.clear();
  std::string missing;
  if (!lattice.cell) {
    missing = "no cell: " + std::to_string(lattice.lines.size()) + " of " +
              std::to_string(program_->workspace.Peaks[data_no_].Count) + " peaks lie within " +
              PlainNumber(program_->workspace.Settings.JudgeRange) + " angstrom of a line of " +
              lattice.crystal + " (--judge)";
  } else if (result_.mode == LatticeMode::Marker && !lattice.pressure) {
    missing = "no pressure: ";
    missing += reason.empty() ? "no scale has the name " + lattice.crystal
                              : std::string("the scale fails");
  }
  if (missing.empty()) return;
  if (!reason.empty()) missing += ": " + reason;
  const bool asked_for = !request_.crystal.empty() || result_.mode == LatticeMode::Marker;
  if (asked_for) {
    result_.failure = missing;
  } else {
    result_.notes.push_back(missing);
  }
}

void AnalysisRun::ListPeaks() {
  const Workspace& workspace = program_->workspace;
  const MeasProp& source = CalibrationOf(workspace, data_no_);
  const auto in_unit = [&](int unit, double index) {
    return ChToUnit(unit, index, source, workspace.Dac);
  };
  const PeakTable& table = workspace.Peaks[data_no_];
  for (int i = 0; i < table.Count; ++i) {
    const PeakRec& peak = table.Peaks[i];
    ListedPeak row;
    row.index = peak.Center;
    row.channel = in_unit(kUnitCh, peak.Center);
    row.energy_kev = in_unit(kUnitKeV, peak.Center);
    row.d = in_unit(kUnitD, peak.Center);
    row.height = peak.Height;
    row.fwhm_kev = in_unit(kUnitKeV, peak.Center + peak.HalfWidth) -
                   in_unit(kUnitKeV, peak.Center - peak.HalfWidth);
    row.area = peak.Amplitude;
    for (const LatticeLine& line : result_.lattice.lines) {
      if (line.peak == i) row.line = line;
    }
    result_.peaks.push_back(row);
  }
}

void AnalysisRun::TakeMessages() {
  for (std::string& message : ports_.dialogs.messages) result_.notes.push_back(std::move(message));
  ports_.dialogs.messages.clear();
}

void AnalysisRun::ShowCurves() {
  const GraphList list = program_->List();
  const bool removed = request_.fit_on == FitOn::Removed;
  for (int row = 0; row < kRows; ++row) {
    const GraphSlot& slot = program_->workspace.Slots[row];
    if (slot.State == kRowEmpty) continue;
    const GraphKind kind = KindOf(slot.Title);
    const bool background = kind == GraphKind::BackGraund && request_.background && !removed;
    ChgValue_chkGrp(list, slot.WinNo, row,
                    kind == (removed ? GraphKind::BackRemv : GraphKind::Raw) || background);
  }
}

void AnalysisRun::Draw(double width, double height, const PanelMaker& make_panel) {
  ShowCurves();
  SpectrumPage page;
  page.data_no = data_no_;
  page.title = result_.title;
  page.details = HeadLine(result_);
  page.log_scale = request_.log_scale;
  if (request_.range) {
    page.first_channel = request_.range->first;
    page.last_channel = std::min(request_.range->last, result_.channels - 1);
  }
  std::vector<const ListedPeak*> labelled;
  for (const ListedPeak& row : result_.peaks) {
    if (row.line && row.line->used) labelled.push_back(&row);
  }
  std::stable_sort(labelled.begin(), labelled.end(),
                   [](const ListedPeak* a, const ListedPeak* b) { return a->height > b->height; });
  for (const ListedPeak* row : labelled)
    page.labels.push_back({row->index, HklText(row->line->hkl)});
  DrawSpectrumPage(*program_, page, width, height, make_panel);
}

}  // namespace dorvane
