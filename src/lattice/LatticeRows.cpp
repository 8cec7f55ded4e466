#include "lattice/LatticeRows.h"

#include <algorithm>

#include "lattice/CalLattice.h"
#include "processing/Units.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

double TwoThetaOf(const Workspace& workspace, int data_no, double channel) {
  const SpectrumRec& spectrum = workspace.Spectra[data_no];
  if (spectrum.DataType != kDacData) return spectrum.Prop.TwoTheta;
  return ChToUnit(kUnit2Theta, channel, CalibrationOf(workspace, data_no), workspace.Dac);
}

// A cell that gives no d for a line leaves its columns empty of a value, not the grid of its row.
double RefinedD(std::int16_t lattice_type, const LineRec& line, const CellVector& cell) {
  try {
    return CalcDSpacing(lattice_type, line.H, line.K, line.L, cell[1], cell[2], cell[3], cell[4],
                        cell[5], cell[6]);
  } catch (const Fault&) {
    return 0;
  }
}

}  // namespace

const char* FitTypeLetter(std::int16_t fit_engine) {
  if (fit_engine == kEngineNax) return "A";
  return fit_engine == kEngineExpress ? "M" : "UNK";
}

std::vector<PeakRow> PeakRowsOf(const Workspace& workspace, int data_no) {
  const MeasProp& source = CalibrationOf(workspace, data_no);
  const PeakTable& table = workspace.Peaks[data_no];
  std::vector<PeakRow> rows;
  for (int i = 0; i < std::min<int>(table.Count, kMaxPeaks); ++i) {
    const PeakRec& peak = table.Peaks[i];
    PeakRow row;
    row.ch = peak.Center + 1;
    row.energy = ChToUnit(kUnitKeV, peak.Center, source, workspace.Dac);
    row.d = ChToUnit(kUnitD, peak.Center, source, workspace.Dac);
    row.intensity = peak.Height;
    row.fwhm_ch = 2 * peak.HalfWidth;
    row.fwhm_kev = ChToWidth(kUnitKeV, row.fwhm_ch, source);
    row.amplitude = peak.Amplitude;
    row.fit_type = FitTypeLetter(peak.FitEngine);
    row.two_theta = TwoThetaOf(workspace, data_no, peak.Center);
    rows.push_back(row);
  }
  return rows;
}

std::string MillerText(const MatchedRow& row) {
  return "(" + std::to_string(row.h) + " " + std::to_string(row.k) + " " + std::to_string(row.l) +
         ")";
}

std::vector<MatchedRow> MatchedRowsOf(const LatticeState& state, const Workspace& workspace,
                                      int data_no, std::int16_t lattice_type,
                                      const CellVector* direct) {
  const MeasProp& source = CalibrationOf(workspace, data_no);
  std::vector<MatchedRow> rows;
  for (int i = 0; i < kMaxPeaks; ++i) {
    const LineRec& line = state.Lines[i];
    if (line.Matched == kFalse) continue;
    MatchedRow row;
    row.peak = i;
    row.use = line.Unused == 0;
    row.h = line.H;
    row.k = line.K;
    row.l = line.L;
    row.ch = line.Ch + 1;
    row.energy = ChToUnit(kUnitKeV, line.Ch, source, workspace.Dac);
    row.d_obs = line.DObs;
    row.d_cal = line.DCalc;
    if (direct != nullptr) row.d_r = RefinedD(lattice_type, line, *direct);
    if (row.d_r != 0 && row.d_cal != 0) row.d_def = (row.d_cal - row.d_r) / row.d_cal;
    row.fit_type = FitTypeLetter(workspace.Peaks[data_no].Peaks[i].FitEngine);
    row.two_theta = TwoThetaOf(workspace, data_no, line.Ch);
    rows.push_back(row);
  }
  return rows;
}

}  // namespace dorvane
