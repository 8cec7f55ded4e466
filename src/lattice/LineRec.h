// The line table of a lattice work: which hkl line each peak of the spectrum has been assigned to.
#pragma once

#include <cstdint>
#include <string>

#include "support/Fixed.h"
#include "support/Rounding.h"
#include "workspace/PeakRec.h"

namespace dorvane {

struct LineRec {
  std::int16_t H = 0, K = 0, L = 0;
  double Ch = 0;      // peak position, channel index with a fraction
  double Energy = 0;  // keV
  double DCalc = 0;   // d of the assigned line, angstrom
  double DObs = 0;    // d of the peak, angstrom
  double Angle = 0;   // theta for copper K-alpha, of an angle-dispersive spectrum 2-theta; degrees
  std::int16_t Matched = kFalse;  // -1 indexed
  std::int16_t Unused = 0;        // non-zero: excluded by the user

  friend bool operator==(const LineRec&, const LineRec&) = default;
};

// By peak index.
using LineTable = Fixed<LineRec, 0, kMaxPeaks - 1>;

// What the line table was made for.
struct MatchState {
  std::string CurName;         // of the crystal
  Fixed<double, 0, 2> CurLat;  // seed a, b, c, angstrom
  Fixed<double, 0, 2> CurAng;  // seed alpha, beta, gamma, degrees
  std::int16_t CurData = 0;    // DataNo, 0..9
  std::int16_t LineCountUsed = 0;

  friend bool operator==(const MatchState&, const MatchState&) = default;
};

// A line that was in the last refinement. h = k = l = 0 marks an empty row.
struct CarriedLine {
  std::int16_t H = 0, K = 0, L = 0;
  double Ch = 0;

  friend bool operator==(const CarriedLine&, const CarriedLine&) = default;
};

using CarryTable = Fixed<CarriedLine, 0, kMaxPeaks - 1>;

}  // namespace dorvane
