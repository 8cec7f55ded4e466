#include "program/LatticeRun.h"

#include <algorithm>
#include <cmath>

#include "lattice/CalLattice.h"
#include "lattice/CrystalData.h"
#include "lattice/LtcCon.h"
#include "program/LatticeBoxes.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr int kLinesPerParameter = 2;  // that remain when outliers are excluded

Hkl HklOf(const LineRec& line) {
  return {line.H, line.K, line.L};
}

bool Contains(const std::vector<Hkl>& lines, const Hkl& hkl) {
  return std::find(lines.begin(), lines.end(), hkl) != lines.end();
}

bool IsExcluded(const LatticeRequest& request, const Hkl& hkl) {
  if (!request.use_lines.empty() && !Contains(request.use_lines, hkl)) return true;
  return Contains(request.exclude_lines, hkl);
}

// A line has to be indexed before it can be excluded; an excluded one keeps its entry when the
// refinement indexes anew.
void ExcludeLines(LatticeState& state, const Workspace& workspace, const RefineInput& input,
                  const LatticeRequest& request) {
  CrystalRec& crystal = state.Library.CrystalTable[input.crystal_index];
  CalcCrystalD(crystal, input.seed);
  MatchPeaks(state, workspace, input.data_no, input.crystal_index, input.seed);
  for (LineRec& line : state.Lines) {
    if (line.Matched != kFalse && IsExcluded(request, HklOf(line))) line.Unused = kTrue;
  }
}

double RefinedD(std::int16_t lattice_type, const Hkl& hkl, const CellVector& cell) {
  return CalcDSpacing(lattice_type, hkl.h, hkl.k, hkl.l, cell[1], cell[2], cell[3], cell[4],
                      cell[5], cell[6]);
}

void ListLines(const LatticeState& state, int peak_count, LatticeReport& report) {
  report.lines.clear();
  for (int i = 0; i < std::min(peak_count, kMaxPeaks); ++i) {
    const LineRec& line = state.Lines[i];
    if (line.Matched == kFalse) continue;
    LatticeLine row;
    row.peak = i;
    row.hkl = HklOf(line);
    row.d_obs = line.DObs;
    row.d_seed = line.DCalc;
    row.d_cal =
        report.cell ? RefinedD(report.lattice_type, row.hkl, report.cell->Direct) : line.DCalc;
    row.excluded = line.Unused != 0;
    row.used = report.cell && !row.excluded && line.Angle > 0;
    report.lines.push_back(row);
  }
}

bool Refine(LatticeState& state, const Workspace& workspace, const RefineInput& input,
            LatticeReport& report, Dialogs& dialogs) {
  LatticeResult result;
  const bool refined = RefineLattice(state, workspace, input, result, dialogs) == 0;
  if (refined) report.cell = result;
  ListLines(state, workspace.Peaks[input.data_no].Count, report);
  return refined;
}

// The line to be excluded next; nullptr where all agree or too few would remain.
const LatticeLine* OutlierOf(const LatticeReport& report, int parameters, double limit) {
  const LatticeLine* worst = nullptr;
  double deviation = limit;
  int used = 0;
  for (const LatticeLine& line : report.lines) {
    if (!line.used) continue;
    ++used;
    const double own = std::fabs(Divide(line.d_obs, line.d_cal) - 1);
    if (own <= deviation) continue;
    deviation = own;
    worst = &line;
  }
  return used > kLinesPerParameter * parameters ? worst : nullptr;
}

void RejectOutliers(LatticeState& state, const Workspace& workspace, const RefineInput& input,
                    double limit, LatticeReport& report, Dialogs& dialogs) {
  if (!(limit > 0)) return;
  while (const LatticeLine* outlier = OutlierOf(report, state.Fit.ParamCount, limit)) {
    state.Lines[outlier->peak].Unused = kTrue;
    report.rejected.push_back(outlier->peak);
    if (!Refine(state, workspace, input, report, dialogs)) return;
  }
}

void SetVolume(LatticeReport& report, const CellVolume& cell) {
  report.volume = cell.volume;
  report.ratio = cell.ratio;
  report.V0 = cell.V0;
}

void MarkerPressure(const LatticeRequest& request, const SeedCell& seed, LatticeReport& report) {
  PressInput input = PreparePressure(report.lattice_type, *report.cell, seed);
  if (const auto cell = MarkerVolume(report.lattice_type, input)) SetVolume(report, *cell);
  input.Material = MaterialOf(report.crystal);
  input.TempText = request.temperature;
  input.UnitIndex = request.temperature_unit;
  report.pressure = CalcPressure(input);
}

}  // namespace

SeedCell SeedOf(const CrystalRec& crystal) {
  SeedCell seed;
  for (int j = 0; j < 3; ++j) {
    seed[j] = crystal.Lat[j];
    seed[j + 3] = crystal.Ang[j];
  }
  return seed;
}

int FindCrystal(const CrystalLibrary& library, std::string_view name) {
  for (int i = 0; i < std::min<int>(library.CrystalCount, kMaxCrystals); ++i) {
    if (library.CrystalTable[i].Name == name) return i;
  }
  return -1;
}

LatticeReport RunLattice(LatticeState& state, const Workspace& workspace, int data_no,
                         const LatticeRequest& request, Dialogs& dialogs) {
  LatticeReport report;
  if (!IsNumeric(request.temperature)) {
    dialogs.Message("Temp Error");
    return report;
  }
  try {
    const CrystalRec& crystal = state.Library.CrystalTable[request.crystal_index];
    const RefineInput input{data_no, crystal.LatticeType, request.crystal_index,
                            request.seed.value_or(SeedOf(crystal))};
    report.crystal = crystal.Name;
    report.lattice_type = crystal.LatticeType;
    ClearCrystalData(state, kClearMatches);
    ExcludeLines(state, workspace, input, request);
    if (!Refine(state, workspace, input, report, dialogs)) return report;
    RejectOutliers(state, workspace, input, request.reject_beyond, report, dialogs);
    if (request.mode == LatticeMode::Sample && !IsLatticeType(report.lattice_type)) {
      dialogs.Message("Lattice Type Error");
    } else if (request.mode == LatticeMode::Sample) {
      SetVolume(report, SampleVolume(crystal, report.lattice_type, *report.cell));
    } else {
      MarkerPressure(request, input.seed, report);
    }
  } catch (const Fault& fault) {
    dialogs.Message(fault.what());
  }
  return report;
}

}  // namespace dorvane
