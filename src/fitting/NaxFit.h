// The Nax fit of a channel region: up to five Gaussians on a parabolic background by a damped
// Gauss-Newton iteration.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "fitting/NaxLsq.h"
#include "fitting/NaxPeak.h"
#include "support/Fixed.h"
#include "support/LogSink.h"
#include "support/Progress.h"

namespace dorvane {

constexpr int kMaxManualPeaks = 5;

// A channel region and the start values of its peaks; channel numbers from 1.
struct ManualFitList {
  std::int16_t StartCh = 0;
  std::int16_t EndCh = 0;
  std::int16_t PeakNum = 0;                              // 1..5
  Fixed<std::int16_t, 0, kMaxManualPeaks - 1> CenterCh;  // within StartCh..EndCh
  Fixed<std::int32_t, 0, kMaxManualPeaks - 1> MaxCount;  // heights above the background
  Fixed<std::int16_t, 0, kMaxManualPeaks - 1> ChWidth;   // channels; only its sign is looked at
};

// Limits of the iteration.
struct NaxLimits {
  int MaxIter = 30;       // iterations
  int MaxDampFail = 20;   // iterations in which no damped step lowers chi-square
  int DampBits = 11;      // the smallest damping is 2^-DampBits
  double TolChi = 1e-4;   // relative change of chi-square
  double TolDist = 1e-3;  // step against the parameter's error
  double TolPar = 1e-6;   // step against the parameter's value; also a limit of chi-square
  double TolDet = 1e-6;   // smallest determinant of the solver
};

// Elements 1.. are amplitude, position and width of each peak in turn, then the three coefficients
// of the background. Positions and the background are relative to the middle of the region, the
// width is w of exp(-((x - p) / w)^2).
using NaxParams = Fixed<double, 0, 20>;

// A region as the iteration works on it.
struct NaxRegion {
  std::span<const std::int32_t> counts;  // empty where nothing can be fitted
  double mid = 0;                        // channel number of the middle, with its half
  double first_x = 0;                    // of the first count, relative to the middle
  int peak_num = 0;
  NaxParams P;

  int ParamCount() const { return 3 * peak_num + 3; }
  NaxBackground Background() const {
    const int c = 3 * peak_num;
    return {P[c + 1], P[c + 2], P[c + 3]};
  }
};

// A peak's value at one place, and its derivatives by amplitude, position and width.
struct PeakValue {
  double y = 0;
  double dA = 0;
  double dQ = 0;
  double dW = 0;
};

// y = A exp(-((Q - x) / W)^2), and the derivatives that follow from it; all exactly 0 where the
// exponent is -20 or less. Throws Fault(DivisionByZero or Overflow) for a width W of 0 and one so
// small that the exponent is no number.
PeakValue PeakModel(double A, double Q, double W, double x);

// Makes the region that a list tells out of the counts of a spectrum, whose first is channel 1 and
// of which 4096 are looked at; the region refers to them. Returns 0; -1 for a position outside of
// StartCh..EndCh.
//
// A region of more than 500 channels or one outside of the spectrum counts as well made and has no
// counts. A negative number in the list ends the start values, so that those behind it are 0.
// Throws Fault(Subscript) for PeakNum outside of 0..5.
std::int16_t COND(std::span<const std::int32_t> spectrum, const ManualFitList& list,
                  NaxRegion& region);

// One evaluation: chi-square per degree of freedom at P, and the step towards its minimum with the
// standard errors of the parameters.
struct NaxStep {
  double chi = 0;
  NaxParams Step;
  NaxParams Err;
};

// The work arrays of a fit, about 140 KB.
struct NaxArrays {
  LsqDesign X;
  LsqMatrix Cov;
  std::array<double, kMaxLsqPoints> DataY{};
};

// Evaluates the region at its P: the linear problem of the residuals and derivatives, weighted by
// the square root of each count, of counts below 1 by 1. False, with a line in the log, where the
// problem is singular. Throws Fault(DivisionByZero) for as many points as parameters, and the
// faults of PeakModel and Lsq.
bool PrepLsq(const NaxRegion& region, const NaxLimits& limits, NaxArrays& arrays, NaxStep& step,
             LogSink& log);

// Values of NaxFitSummary::result.
inline constexpr std::int16_t kNaxIterations = 0;    // MaxIter iterations have been made
inline constexpr std::int16_t kNaxConverged = 1;     // chi-square or all steps are small enough
inline constexpr std::int16_t kNaxLowChi = 2;        // no step helps, and chi-square is small
inline constexpr std::int16_t kNaxDampingOver = -1;  // no step has helped MaxDampFail times

struct NaxFitSummary {
  bool ok = false;       // there are results, whatever `result` says
  bool stopped = false;  // by the user
  std::int16_t result = kNaxIterations;
  double chi = 0;  // chi-square per degree of freedom
  int iterations = 0;
  std::vector<NaxPeak> peaks;  // ascending by position
};

// The iteration: fits the background of the region's ends, then all parameters together. Leaves
// the last values in the region. It looks at `progress` after every step that it tries.
NaxFitSummary DampedLsq(NaxRegion& region, const NaxLimits& limits, LogSink& log,
                        Progress& progress);

// The peaks of a region in the order of their positions. A position of 5000 or more is never the
// next.
std::vector<NaxPeak> FitResult(const NaxRegion& region, const NaxParams& errors);

}  // namespace dorvane
