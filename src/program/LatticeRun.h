// The lattice work on one spectrum in one go: indexing, refinement of the cell, and for a marker
// crystal its pressure.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "lattice/LatticeState.h"
#include "lattice/Pressure.h"
#include "program/CellVolume.h"
#include "support/Dialogs.h"
#include "workspace/Workspace.h"

namespace dorvane {

struct Hkl {
  std::int16_t h = 0, k = 0, l = 0;
  friend bool operator==(const Hkl&, const Hkl&) = default;
};

enum class LatticeMode {
  Sample,  // cell and V/V0, V0 being the volume of the library's cell
  Marker,  // V0 is the volume of the seeds; the crystal's name selects the pressure scale
};

struct LatticeRequest {
  int crystal_index = 0;         // 0..30 in the library
  std::optional<SeedCell> seed;  // the library's cell where there is none
  LatticeMode mode = LatticeMode::Sample;
  std::string temperature = "27.0";
  std::int16_t temperature_unit = 0;  // 0 degrees Celsius, else kelvin
  std::vector<Hkl> use_lines;         // where there are any, all other indexed lines are excluded
  std::vector<Hkl> exclude_lines;
  // Largest |d_obs / d_cal - 1| of a line: the worst line beyond it is excluded and the cell
  // refined anew, and so on, as long as at least two lines for each refined parameter remain. 0:
  // none.
  double reject_beyond = 0;
};

// One indexed peak.
struct LatticeLine {
  int peak = 0;  // index in the peak table
  Hkl hkl;
  double d_obs = 0;       // angstrom
  double d_seed = 0;      // of the seeds, by which the peak was indexed
  double d_cal = 0;       // of the refined cell; of the seeds where nothing was refined
  bool excluded = false;  // by the request
  bool used = false;      // took part in the refinement
};

struct LatticeReport {
  std::string crystal;
  std::int16_t lattice_type = 0;
  std::vector<LatticeLine> lines;  // in the order of the peaks
  std::vector<int> rejected;  // peaks of the lines that reject_beyond has excluded, the worst first
  std::optional<LatticeResult> cell;  // nothing where the refinement has failed
  std::optional<ValueWithError>
      volume;  // angstrom^3; in Marker mode for cubic and hexagonal crystals alone
  std::optional<ValueWithError> ratio;     // V/V0
  double V0 = 0;                           // angstrom^3
  std::optional<PressureResult> pressure;  // in Marker mode, where a scale has the crystal's name
};

// Cell of a crystal of the library as seeds.
SeedCell SeedOf(const CrystalRec& crystal);

// Index of the crystal with exactly that name; -1 where there is none.
int FindCrystal(const CrystalLibrary& library, std::string_view name);

// Indexes the peaks of spectrum `data_no` (0..9) with a crystal of state.Library within
// Settings.JudgeRange, excludes lines as the request says, refines and calculates. What fails is
// told in a message, and the report goes as far as the work went; "Temp Error" for a temperature
// that is no number, before anything else.
LatticeReport RunLattice(LatticeState& state, const Workspace& workspace, int data_no,
                         const LatticeRequest& request, Dialogs& dialogs);

}  // namespace dorvane
