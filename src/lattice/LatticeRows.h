// What a lattice work shows and logs line by line: the peaks of its spectrum and the indexed lines
// among them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "lattice/FitWork.h"
#include "lattice/LatticeState.h"
#include "workspace/Workspace.h"

namespace dorvane {

// Letter of the fit that a peak comes from: "A" for a scan, "M" for a peak taken by hand, "UNK".
const char* FitTypeLetter(std::int16_t fit_engine);

// One peak of the table.
struct PeakRow {
  double ch = 0;         // channel number, from 1, with a fraction
  double energy = 0;     // keV
  double d = 0;          // angstrom
  double intensity = 0;  // counts above the background
  double fwhm_ch = 0;    // channels
  double fwhm_kev = 0;   // keV
  double amplitude = 0;  // area
  std::string fit_type;
  double two_theta = 0;  // degrees: the peak's own where the spectrum is angle-dispersive, else the
                         // spectrum's
};

// The peaks of spectrum `data_no` (0..13) in the order of the table, with the calibration that
// UseFileEgc picks.
std::vector<PeakRow> PeakRowsOf(const Workspace& workspace, int data_no);

// One indexed line.
struct MatchedRow {
  int peak = 0;     // index in the peak table
  bool use = true;  // not excluded by the user
  std::int16_t h = 0, k = 0, l = 0;
  double ch = 0;      // channel number, from 1, with a fraction
  double energy = 0;  // keV
  double d_obs = 0;   // angstrom
  double d_cal = 0;   // of the seeds, angstrom
  double d_r = 0;     // of the refined cell, angstrom; 0 where there is none
  double d_def = 0;   // (d_cal - d_r) / d_cal; 0 where either is 0
  std::string fit_type;
  double two_theta = 0;  // as in PeakRow
};

// "(h k l)"
std::string MillerText(const MatchedRow& row);

// The matched lines in the order of the peaks. `direct` is the refined cell of a lattice type, or
// nullptr for none.
std::vector<MatchedRow> MatchedRowsOf(const LatticeState& state, const Workspace& workspace,
                                      int data_no, std::int16_t lattice_type,
                                      const CellVector* direct);

}  // namespace dorvane
