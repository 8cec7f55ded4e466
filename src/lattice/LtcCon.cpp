#include "lattice/LtcCon.h"

#include <algorithm>
#include <cstdlib>

#include "lattice/CalLattice.h"
#include "lattice/CellConvert.h"
#include "lattice/CrystalData.h"
#include "lattice/Float32.h"
#include "lattice/SolveNormal.h"

namespace dorvane {
namespace {

constexpr char kTooFewLinesText[] = "計算するための回折線の数が少なすぎます。";
constexpr char kSingularText[] = "最小二乗が計算できません";
constexpr float kPivotLimit = 0.0001f;

// LatticeType + 1, as FitWork::System counts.
constexpr std::int16_t kCubicSystem = kCubic + 1;
constexpr std::int16_t kHexagonalSystem = kHexagonal + 1;
constexpr std::int16_t kMonoclinicSystem = kMonoclinic + 1;
constexpr std::int16_t kTriclinicSystem = kTriclinic + 1;

// Peaks of the spectrum under fit.
int PeakCount(const LatticeState& state, const Workspace& workspace) {
  return std::min<int>(workspace.Peaks[state.Match.CurData].Count, kMaxPeaks);
}

bool IsUsed(const LineRec& line) {
  return line.Matched != kFalse && line.Unused == 0;
}

float Product(const FitWork& fit, int line, int index_1, int index_2) {
  const auto& hkl = fit.FitHkl[line];
  return static_cast<float>(hkl[index_1]) * static_cast<float>(hkl[index_2]);
}

// Counts the lines up to the first 0 0 0 and sets their weights and flags.
// KEPT: the list needs its terminating line, so the table holds 99 lines; the scan faults behind
// the hundredth.
void ScanLines(FitWork& fit) {
  int n = 1;
  for (;; ++n) {
    const auto& hkl = fit.FitHkl[n];
    if (hkl[1] == 0 && hkl[2] == 0 && hkl[3] == 0) break;
    if (fit.FitWeight[n] <= 0.0f) fit.FitWeight[n] = 1.0f;
    if (fit.FitAngle[n] > 0.0f) {
      fit.FitFlag[n] = kLineInFit;
    } else {
      fit.FitFlag[n] = kLineLeftOut;
      fit.FitWeight[n] = 0.0f;
    }
  }
  fit.LineCount = n - 1;
}

// Column `param` of the design takes the product of two indices of every line.
void AddToDesign(FitWork& fit, int param, int index_1, int index_2) {
  for (int i = 1; i <= fit.LineCount; ++i) {
    fit.Design[i][param] += Product(fit, i, index_1, index_2);
  }
}

// Gives each metric slot its parameter, by the freedom of the system, and builds the design.
void BuildDesign(FitWork& fit) {
  enum { H = 1, K = 2, L = 3 };
  ParamSlots& map = fit.ParamMap;
  map = {};
  map[1] = 1;
  if (fit.System > kCubicSystem) map[3] = 1;
  if (fit.System > kHexagonalSystem) map[2] = 1;

  fit.Design = {};
  std::int16_t params = 0;
  for (int j = 1; j <= 3; ++j) {
    if (map[j] >= 1) {
      map[j] = ++params;
    } else {
      map[j] = ToInt16(-params);
    }
    AddToDesign(fit, params, j, j);
  }
  if (fit.System == kHexagonalSystem) {
    map[6] = -1;
    AddToDesign(fit, 1, H, K);
  }
  if (fit.System == kMonoclinicSystem) {
    map[5] = ++params;
    AddToDesign(fit, map[5], H, L);
  }
  if (fit.System == kTriclinicSystem) {
    map[4] = ++params;
    map[5] = ++params;
    map[6] = ++params;
    AddToDesign(fit, map[4], K, L);
    AddToDesign(fit, map[5], H, L);
    AddToDesign(fit, map[6], H, K);
  }
  fit.ParamCount = params;
}

void BuildRows(FitWork& fit) {
  fit.RowCount = 0;
  for (int i = 1; i <= fit.LineCount; ++i) {
    if (fit.FitFlag[i] == kLineLeftOut) continue;
    const int r = ++fit.RowCount;
    fit.Rhs[r] = 1.0f;
    const float d_squared = fit.FitD[i] * fit.FitD[i];
    for (int j = 1; j <= fit.ParamCount; ++j) fit.Rows[r][j] = d_squared * fit.Design[i][j];
  }
}

MetricVector ExpandMetric(const FitWork& fit, const CellVector& recip) {
  MetricVector metric;
  for (int j = 1; j <= kMetricSlots; ++j) {
    if (fit.ParamMap[j] != 0) metric[j] = recip[std::abs(fit.ParamMap[j])];
  }
  return metric;
}

void CalcLines(FitWork& fit, const CellVector& recip) {
  for (int i = 1; i <= fit.LineCount; ++i) {
    float sum = 0.0f;
    for (int j = 1; j <= fit.ParamCount; ++j) sum += fit.Design[i][j] * recip[j];
    fit.FitDCalc[i] = Divide32(1.0f, Root32(sum));
    const float deviation = Divide32(fit.FitD[i], fit.FitDCalc[i]) - 1.0f;
    // KEPT: a line without a d value shows no deviation instead of -1.
    fit.FitDev[i] = deviation == -1.0f ? 0.0f : deviation;
  }
}

// Remembers the lines in use.
void KeepChoice(LatticeState& state, int peak_count) {
  state.Carried = {};
  int row = 0;
  for (int i = 0; i < peak_count; ++i) {
    const LineRec& line = state.Lines[i];
    if (IsUsed(line)) state.Carried[row++] = {line.H, line.K, line.L, line.Ch};
  }
}

// Excludes every matched line that was not in use before.
void RestoreChoice(LatticeState& state, int peak_count) {
  for (int i = 0; i < peak_count; ++i) {
    LineRec& line = state.Lines[i];
    if (line.Matched == kFalse) continue;
    const CarriedLine wanted{line.H, line.K, line.L, line.Ch};
    const bool carried =
        std::find(state.Carried.begin(), state.Carried.end(), wanted) != state.Carried.end();
    line.Unused = carried ? kFalse : kTrue;
  }
}

}  // namespace

void LoadFitLines(LatticeState& state, const Workspace& workspace, std::int16_t lattice_type) {
  FitWork& fit = state.Fit;
  fit = {};
  int n = 0;
  for (int i = 0; i < PeakCount(state, workspace); ++i) {
    const LineRec& line = state.Lines[i];
    if (!IsUsed(line)) continue;
    ++n;
    fit.FitHkl[n][1] = line.H;
    fit.FitHkl[n][2] = line.K;
    fit.FitHkl[n][3] = line.L;
    fit.FitD[n] = static_cast<float>(line.DObs);
    fit.FitAngle[n] = static_cast<float>(line.Angle);
    fit.FitWeight[n] = 1.0f;
  }
  fit.System = ToInt16(lattice_type + 1);
}

std::int16_t LatticeLsq(FitWork& fit, LatticeResult& result, Dialogs& dialogs) {
  ScanLines(fit);
  BuildDesign(fit);
  BuildRows(fit);
  if (fit.RowCount < fit.ParamCount) {
    dialogs.Message(kTooFewLinesText);
    return kLsqTooFewLines;
  }
  LatticeResult found;
  if (!SolveNormal(kPivotLimit, fit.ParamCount, fit.RowCount, fit.Rhs, fit.Rows, found.Recip,
                   found.RecipErr)) {
    dialogs.Message(kSingularText);
    fit.RowCount = 0;
    fit.Status = 1;
    return kLsqSingular;
  }
  const MetricVector metric = ExpandMetric(fit, found.Recip);
  if (CellConvert(metric, fit.ParamMap, found.RecipErr, found.Direct, found.DirectErr) !=
      kCellDone) {
    return kLsqNoCell;
  }
  CalcLines(fit, found.Recip);
  result = found;
  return kLsqDone;
}

std::int16_t RefineLattice(LatticeState& state, const Workspace& workspace,
                           const RefineInput& input, LatticeResult& result, Dialogs& dialogs) {
  try {
    CrystalRec& crystal = state.Library.CrystalTable[input.crystal_index];
    crystal.LatticeType = input.lattice_type;
    CalcCrystalD(crystal, input.seed);
    MatchPeaks(state, workspace, input.data_no, input.crystal_index, input.seed);
    const int peak_count = PeakCount(state, workspace);
    if (state.UseCarry == kFalse) {
      KeepChoice(state, peak_count);
    } else {
      RestoreChoice(state, peak_count);
      state.UseCarry = kFalse;
    }
    LoadFitLines(state, workspace, input.lattice_type);
    return LatticeLsq(state.Fit, result, dialogs) == kLsqDone ? 0 : -1;
  } catch (const Fault& fault) {
    if (fault.Code() == FaultCode::Subscript) throw;
    return -1;
  }
}

}  // namespace dorvane
