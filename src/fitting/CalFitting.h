// The fit of one line to the counts of a channel region: maximum likelihood for Poisson-distributed
// counts by a Levenberg-Marquardt iteration.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "fitting/LineShapes.h"

namespace dorvane {

inline constexpr int kMaxFitPoints = 500;

// Status numbers of a fit: converged, or the trace was zero; a limit of the rounds was reached; too
// many points, a model that isn't positive at the start, or a singular matrix. Numbers of 5 or more
// are the FaultCode numbers of arithmetic faults in the line shape.
inline constexpr std::int16_t kFitEnded = 0;
inline constexpr std::int16_t kFitLimitReached = 2;
inline constexpr std::int16_t kFitRefused = 4;

// The text that the caller shows in a box when a fit ends with `trace_zero`.
inline constexpr std::string_view kTraceZeroText = "trace value =Zero";

// Rounds after which a fit gives up: it ends with the first round beyond.
struct FitLimits {
  int outer_rounds = 100;
  int not_positive_trials = 100;  // trials of an outer round, when one gives a model of 0 or less
  int rejected_trials = 500;      // trials of an outer round, when one lowers the likelihood
};

struct FitSummary {
  std::int16_t status = kFitEnded;
  std::string_view message;     // static, UTF-8; empty for status 0 and for a fault in a derivative
  Coefficients standard_error;  // of the last trial that came so far; 0 otherwise and beyond m
  double height_covariance = 0;  // of the two heights of a GaussLorentz, estimated as the errors
  bool held = false;             // CurveFit has put a coefficient back into the region
  bool trace_zero = false;  // ended because the trace of the inverse normal matrix was exactly zero
  int outer_rounds = 0;     // linearisations
  int trials = 0;           // damped steps tried, in all outer rounds
};

// `sum` with ln(y!) added, for a count y of any size that needn't be whole: nothing up to 1, the
// product y (y - 1) ... down to above 1 for y <= 50, and Stirling's series with one correction term
// above.
double AddLogFactorial(double sum, double y);

// Sum of y ln(f) - f over the points: the logarithm of the Poisson likelihood of counts y under
// model values f, without its factorial term. A model value of 0 or less sets `flag` and gives 0.
// Throws Fault(Overflow) when it overflows.
double PoissonLogL(std::span<const double> y, std::span<const double> f, bool& flag);

// Fits the line of shape `mode` (1 Gauss, 2 Lorentz, 3 GaussLorentz) to counts y at abscissae x, at
// most 500 points. The first m (0..10) coefficients of `c`, the starting values, are replaced by
// the result; the others stay.
//
// Every step solves the damped linear problem with the weights 1/f by Gram-Schmidt factorisation;
// the damping follows R. Fletcher, A modified Marquardt subroutine for non-linear least squares,
// AERE-R 6799 (1971). Standard errors are the sandwich estimate with f as the variance of each
// count.
//
// Ends with status 0 when the full log-likelihood changes by no more than 1e-7 of itself and no
// coefficient by more than 1e-6 of its standard error or 1e-10 of the coefficient solved last; else
// as the message says, and `c` then holds the last accepted values. Any other mode has the value 0
// everywhere and is refused like every model that isn't positive at the start.
//
// Works in about 200 KB of the stack, allocates nothing, and keeps nothing from one call to the
// next.
//
// Faults that pass: Subscript for n + m > 500 with n <= 500, and for m outside of 0..10;
// BadArgument for x and y of different sizes; DivisionByZero for a coefficient on which the model
// does not depend; an overflow outside of the line shape. `c` then holds the last accepted values,
// too.
FitSummary CFDQR2(std::span<const double> x, std::span<const double> y, std::int16_t mode,
                  Coefficients& c, int m, const FitLimits& limits = {});

// CFDQR2 for x = 1..n, with starting values of its own where c1 is 0 or negative and a half width
// of 10 in place of a negative one; a centre that has left 1..n is put to n / 2 afterwards (of a
// GaussLorentz the half width, not the centre). Faults as in CFDQR2; Subscript for no points.
FitSummary CurveFit(std::span<const double> x, std::span<const double> y, std::int16_t mode, int m,
                    Coefficients& c);

}  // namespace dorvane
