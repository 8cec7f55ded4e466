// Linear least squares in 32-bit floats by the normal equations with an explicit inverse.
#pragma once

#include "lattice/FitWork.h"

namespace dorvane {

// Minimises the sum over rows j = 1..n_rows of (y(j) - sum over k of A(j, k) x(k))^2 for the
// parameters k = 1..n_param (at most 6), n_rows <= 100. x and sigma (standard errors from the
// variance of the residuals, all 0 without a degree of freedom) are written for 1..n_param only.
// Answers false, with nothing written, when a pivot of the elimination is not above `eps` in
// absolute value; a single parameter has no such test. Sums run over ascending subscripts, in 32
// bits. Faults pass: DivisionByZero for a single parameter with a zero column, Overflow and
// BadArgument for values that leave the range of a 32-bit float.
bool SolveNormal(float eps, int n_param, int n_rows, const LineVector& y, const LineMatrix& A,
                 CellVector& x, CellVector& sigma);

}  // namespace dorvane
