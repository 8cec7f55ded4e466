// One lattice work on a spectrum: what it keeps beside the tables of the refinement, and the steps
// of it that no form is needed for.
#pragma once

#include <cstdint>
#include <vector>

#include "lattice/LatticeState.h"
#include "program/LineMarks.h"
#include "program/Program.h"

namespace dorvane {

// Values of LatticeWork::SelectMode.
constexpr std::int16_t kSelectSample = 0;
constexpr std::int16_t kSelectMarker = 1;

struct LatticeWork {
  std::int16_t GrpNo = 0;
  std::int16_t DataNo = 0;
  std::int16_t WinNo = 0;
  std::int16_t DispUnit = 0;
  double TwoTheta = 0;  // scattering angle last accepted, degrees
  std::int16_t ElementIndex = -1;
  std::int16_t LatticeIndex = -1;  // a LatticeType
  std::int16_t SelectMode = kSelectSample;
  SeedCell Seed;             // a, b, c in angstrom, alpha, beta, gamma in degrees, as last read
  std::int16_t Loading = 0;  // 1: changes of controls do nothing
  // As they were when the work began: the program's default and the spectrum's own, degrees.
  double SavedTwoTheta = 0;
  double SavedOwnTwoTheta = 0;
};

// A fresh work on the graph of a row that holds one (0..9).
LatticeWork BeginLatticeWork(const Program& program, int grp_no);

// A new scattering angle, degrees: of the work, of the program's default and of the spectrum, so
// that it counts whichever calibrates. Tells those who show it.
void SetWorkTwoTheta(Program& program, LatticeWork& work, double two_theta_deg);
// Both angles are again as they were when the work began.
void GiveBackTwoTheta(Program& program, const LatticeWork& work);

// Bragg angle theta in degrees (not 2-theta) under which a cubic standard of the length `seed` is
// seen, when at 2-theta its lines have given the length `a_calc`; both in angstrom. Faults pass:
// DivisionByZero for a seed of 0 and where the sine is 1, BadArgument where it is larger.
double ExpectedTwoTheta(double two_theta_deg, double a_calc, double seed);

// The r-th matched line in the order of the peaks, from 1; nullptr where there is none.
LineRec* MatchedLine(LineTable& lines, int r);

// The lines that a crystal of the library has with these seeds, named by their indices: at their
// energies for the 2-theta that calibrates, in an angle-dispersive spectrum at the channels of
// their Bragg angles for Settings.DacWavelength. Empty without a crystal, a system, or seeds that
// make a cell; a line that the angle or the wavelength gives no place is left out.
std::vector<LineMark> CrystalMarks(const LatticeState& state, const Workspace& workspace,
                                   const LatticeWork& work);

}  // namespace dorvane
