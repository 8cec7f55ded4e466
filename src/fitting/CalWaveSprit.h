// The peak search by the second derivative of a spectrum, and the wave split, which refines a group
// of overlapping Gaussians together.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "support/Dialogs.h"
#include "support/Fault.h"
#include "support/LogSink.h"
#include "workspace/PeakRec.h"

namespace dorvane {

// A find of the numerical search; positions count from 1.
struct FoundPeak {
  double height = 0;  // smoothed counts
  int position = 0;
  double width = 0;  // estimate of the half width, channels
};

struct PeakFindResult {
  std::vector<FoundPeak> peaks;  // ascending by position
  double noise = 0;              // squared distance of the counts from their smoothed values
};

// Centres of peaks are the minima of the second derivative, found as zero crossings of its slope
// (filters by least squares over 5 and 9 points: A. Savitzky, M. J. E. Golay, Anal. Chem. 36 (1964)
// 1627). The greater the sensitivity, the smaller the peaks that are found; 21 and more count
// as 11. No peaks for fewer than 9 points. Throws Fault(Subscript) for more than 2048 crossings or
// 682 peaks.
PeakFindResult PeakFind(std::span<const double> y, int sensitivity);

// Peaks in the n channels from channel index `start` on, at most 100 (a message tells of more),
// with the start values of a fit. A range without peaks counts as one peak as a whole. A range that
// reaches past the last of `counts` ends there. None for a negative start or fewer than 2 channels.
// Faults of PeakFind pass.
std::vector<PeakRec> PeakSearch(std::span<const std::int32_t> counts, int start, int n,
                                int sensitivity, std::int16_t func_type, Dialogs& dialogs);

enum class SplitStatus {
  Converged,       // the sum of squares has fallen below the limit
  IterationLimit,  // 20 steps have been made; the last parameters are kept
  Faulted,         // an arithmetic fault; the parameters are those at the start
};

struct SplitSummary {
  SplitStatus status = SplitStatus::Converged;
  int steps = 0;           // full Gauss-Newton steps
  double sum_squares = 0;  // before the last step
  FaultCode fault{};       // of status Faulted
};

constexpr int kMaxSplitSteps = 20;

// Fits a sum of Gaussians to y(1..n) by undamped Gauss-Newton steps. `p` holds height, centre and
// half width of each peak in turn, centres counted from 1; nothing happens without a peak. Ends as
// soon as the sum of the squared residuals is less than `limit`.
SplitSummary GaussSumFit(std::span<const double> y, std::span<double> p, double limit);

// Splits a group of overlapping peaks over the n channels from channel index `start` on, above the
// straight line through the ends of the range, with negative counts cut to 0. The peaks keep their
// order; a peak whose fitted centre leaves the range to the right keeps its values. After an
// arithmetic fault (a message and a line in the log) all peaks count as fitted with the values that
// they had.
//
// Returns the number of peaks; 0, and nothing happens, for n <= 0, and for more than 4096 channels
// with a message. A range that reaches past the last of `counts` ends there. Throws
// Fault(Subscript) for a negative start.
int WaveSplit(std::span<const std::int32_t> counts, int start, int n, std::span<PeakRec> peaks,
              Dialogs& dialogs, LogSink& log);

}  // namespace dorvane
