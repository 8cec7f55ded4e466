// The working arrays and the result of one cell refinement, in 32-bit floats.
#pragma once

#include <cstdint>

#include "support/Fixed.h"

namespace dorvane {

constexpr int kMaxFitLines = 100;
constexpr int kMetricSlots = 6;

// By line or by row, from 1.
using LineVector = Fixed<float, 0, kMaxFitLines>;
// By line or row and by parameter, both from 1.
using LineMatrix = Fixed<Fixed<float, 0, kMetricSlots>, 0, kMaxFitLines>;
// Metric coefficients by slot: 1 h^2, 2 k^2, 3 l^2, 4 kl, 5 hl, 6 hk; 1/angstrom^2.
using MetricVector = Fixed<float, 1, kMetricSlots>;
// Parameter of each slot: n > 0 is parameter n, -n shares parameter n with another slot, 0 has
// none.
using ParamSlots = Fixed<std::int16_t, 1, kMetricSlots>;
using CellVector = Fixed<float, 1, 7>;

// Values of FitWork::FitFlag.
constexpr std::int16_t kLineInFit = 1;
constexpr std::int16_t kLineLeftOut = 2;

struct FitWork {
  Fixed<Fixed<std::int16_t, 1, 3>, 1, kMaxFitLines> FitHkl;
  LineVector FitD;       // observed d, angstrom
  LineVector FitAngle;   // degrees; a line with 0 or less is left out of the fit
  LineVector FitWeight;  // 1 in the fit, 0 left out
  Fixed<std::int16_t, 0, kMaxFitLines> FitFlag;
  LineVector FitDCalc;  // d of the refined cell, angstrom
  LineVector FitDev;    // observed d / calculated d - 1
  LineMatrix Design;    // factor of each parameter in 1/d^2
  LineMatrix Rows;      // Design * d^2, lines in the fit only
  LineVector Rhs;       // 1 for every row
  ParamSlots ParamMap;
  std::int16_t System = 0;  // LatticeType + 1
  std::int16_t Status = 0;  // 0 normal, 1 the normal equations were singular
  int LineCount = 0;
  int RowCount = 0;  // lines in the fit
  int ParamCount = 0;
};

struct LatticeResult {
  CellVector Recip;      // parameters by number, 1/angstrom^2
  CellVector RecipErr;   // their standard errors; 0 past the last parameter
  CellVector Direct;     // a, b, c (angstrom), alpha, beta, gamma (degrees), V (angstrom^3)
  CellVector DirectErr;  // standard errors, without covariances

  friend bool operator==(const LatticeResult&, const LatticeResult&) = default;
};

}  // namespace dorvane
