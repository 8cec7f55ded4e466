// Everything that one lattice work keeps between its steps: library, line table, fit arrays and
// carried lines.
#pragma once

#include "lattice/CrystalRec.h"
#include "lattice/FitWork.h"
#include "lattice/LineRec.h"

namespace dorvane {

// About 80 kilobytes.
struct LatticeState {
  CrystalLibrary Library;
  MatchState Match;
  LineTable Lines;
  FitWork Fit;
  std::int16_t UseCarry = kFalse;  // -1: the next refinement keeps the present choice of lines
  CarryTable Carried;              // lines of the last refinement that chose freely
};

}  // namespace dorvane
