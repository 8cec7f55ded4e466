// Refinement of the lattice constants from the indexed lines, by linear least squares in reciprocal
// space.
#pragma once

#include "lattice/LatticeState.h"
#include "support/Dialogs.h"
#include "workspace/Workspace.h"

namespace dorvane {

// What LatticeLsq answers. It has shown a message for the first two failures.
constexpr std::int16_t kLsqDone = 0;
constexpr std::int16_t kLsqTooFewLines = -1;  // fewer lines in the fit than parameters
constexpr std::int16_t kLsqSingular = 1;      // a pivot of the normal equations vanished
constexpr std::int16_t kLsqNoCell = 2;        // the solved coefficients are no metric

// Clears the fit arrays and fills them with the matched lines that are not excluded, in the order
// of the peaks of spectrum Match.CurData.
void LoadFitLines(LatticeState& state, const Workspace& workspace, std::int16_t lattice_type);

// Fits 1/d^2 = M1 h^2 + M2 k^2 + M3 l^2 + M4 kl + M5 hl + M6 hk with the freedom of fit.System,
// minimising the residuals of d^2 * (1/d^2 of the cell) = 1, and converts the result to the direct
// cell. Lines whose angle column is 0 or less take no part and still get a calculated d and a
// deviation. `result` is written only when kLsqDone is answered. Faults pass: Subscript for 100
// lines, DivisionByZero, BadArgument and Overflow from the arithmetic outside CellConvert.
std::int16_t LatticeLsq(FitWork& fit, LatticeResult& result, Dialogs& dialogs);

struct RefineInput {
  int data_no = 0;  // 0..9
  std::int16_t lattice_type = 0;
  int crystal_index = 0;  // 0..30
  SeedCell seed;
};

// The whole pass: the crystal takes the lattice type, its d values come from the seeds, the peaks
// are indexed, the choice of lines is remembered (UseCarry 0) or restored (UseCarry -1, which is
// then cleared), the cell is refined. 0 on success, -1 for every kind of failure; `result` is
// written on success only. A Subscript fault passes: 100 lines in the fit, or a crystal outside
// 0..30.
std::int16_t RefineLattice(LatticeState& state, const Workspace& workspace,
                           const RefineInput& input, LatticeResult& result, Dialogs& dialogs);

}  // namespace dorvane
