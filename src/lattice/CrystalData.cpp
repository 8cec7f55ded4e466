#include "lattice/CrystalData.h"

#include <algorithm>

#include "processing/Units.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr int kChoosableCrystals = 10;

// First line strictly inside (d - range, d + range); -1 when there is none.
// KEPT: a nearer line later in the list does not count; the order of the library is the tie-break.
int FirstLineAt(const CrystalRec& crystal, double d, double range) {
  const double low = d - range;
  const double high = d + range;
  for (int j = 0; j < crystal.LineCount; ++j) {
    if (low < crystal.DCalc[j] && crystal.DCalc[j] < high) return j;
  }
  return -1;
}

// Column that decides whether a line enters the fit.
double AngleOf(const Workspace& workspace, int data_no, double channel) {
  const MeasProp& source = CalibrationOf(workspace, data_no);
  if (workspace.Spectra[data_no].DataType == kDacData) {
    return ChToUnit(kUnit2Theta, channel, source, workspace.Dac);
  }
  return ChToCuTheta(channel, source.TwoTheta, source);
}

}  // namespace

void ClearCrystalData(LatticeState& state, std::int16_t scope) {
  for (CrystalRec& crystal : state.Library.CrystalTable) crystal.DCalc.fill(0);
  if (scope == kClearMatches) {
    state.Match = {};
    state.Lines = {};
  } else if (scope == kClearSeeds) {
    state.Match.CurLat = {};
    state.Match.CurAng = {};
  }
}

std::vector<std::string> CrystalNames(const CrystalLibrary& library) {
  std::vector<std::string> names;
  for (int i = 0; i < kChoosableCrystals; ++i) {
    const std::string& name = library.CrystalTable[i].Name;
    if (Trim(name).empty()) break;
    names.push_back(name);
  }
  return names;
}

void MatchPeaks(LatticeState& state, const Workspace& workspace, int data_no, int crystal_index,
                const SeedCell& seed) {
  if (data_no < 0 || data_no >= kFreeSpectra) return;
  const CrystalRec& crystal = state.Library.CrystalTable[crystal_index];
  MatchState& match = state.Match;
  match.CurData = ToInt16(data_no);
  match.CurName = crystal.Name;
  for (int j = 0; j < 3; ++j) {
    match.CurLat[j] = seed[j];
    match.CurAng[j] = seed[j + 3];
  }
  match.LineCountUsed = 0;

  const MeasProp& source = CalibrationOf(workspace, data_no);
  const PeakTable& peaks = workspace.Peaks[data_no];
  const int count = std::min<int>(peaks.Count, kMaxPeaks);
  for (int i = 0; i < count; ++i) {
    LineRec& line = state.Lines[i];
    if (line.Unused != 0) continue;
    const double channel = peaks.Peaks[i].Center;
    const double d = ChToUnit(kUnitD, channel, source, workspace.Dac);
    const int j = FirstLineAt(crystal, d, workspace.Settings.JudgeRange);
    if (j < 0) {
      line.Matched = kFalse;
      continue;
    }
    line.Matched = kTrue;
    line.DCalc = crystal.DCalc[j];
    line.DObs = d;
    line.Angle = AngleOf(workspace, data_no, channel);
    line.Energy = ChToUnit(kUnitKeV, channel, source, workspace.Dac);
    line.Ch = channel;
    line.H = crystal.H[j];
    line.K = crystal.K[j];
    line.L = crystal.L[j];
    ++match.LineCountUsed;
  }
}

}  // namespace dorvane
