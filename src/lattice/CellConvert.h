// From the six coefficients of the reciprocal metric to the direct cell, with the errors carried
// over.
#pragma once

#include "lattice/FitWork.h"

namespace dorvane {

// Values that CellConvert answers.
constexpr std::int16_t kCellDone = 0;
constexpr std::int16_t kCellFailed =
    2;  // the coefficients are no metric: an arithmetic fault on the way

// direct = a, b, c (angstrom), alpha, beta, gamma (degrees), V (angstrom^3) of the lattice whose
// 1/d^2 = M1 h^2 + M2 k^2 + M3 l^2 + M4 kl + M5 hl + M6 hk.
// direct_err(k) = sqrt(sum over parameters p of (dDirect(k)/dp * sigma(p))^2), without covariances;
// the derivatives by all slots that share a parameter are added first. Both are written only when
// kCellDone is answered.
std::int16_t CellConvert(const MetricVector& metric, const ParamSlots& param_map,
                         const CellVector& sigma, CellVector& direct, CellVector& direct_err);

}  // namespace dorvane
