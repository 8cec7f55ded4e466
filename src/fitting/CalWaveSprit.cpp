#include "fitting/CalWaveSprit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>

#include "processing/Calc.h"
#include "support/Fixed.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr int kMinFindPoints = 9;
constexpr int kMaxCrossings = 2048;
constexpr std::size_t kMaxFinds = 682;  // three numbers each in a list of 2048
constexpr int kNarrowedFrom = 500;      // channels
constexpr int kMaxSplitChannels = 4096;
constexpr double kSplitLimit = 200000;  // counts squared

// Positions count from 1.
double At(std::span<const double> values, int position) {
  return values[static_cast<std::size_t>(position - 1)];
}

double ThresholdOf(int sensitivity) {
  const int threshold = sensitivity < 10 ? (20 - sensitivity) * 100 : (21 - sensitivity) * 4;
  return threshold <= 0 ? 40 : threshold;
}

struct Smoothed {
  std::vector<double> counts;
  double highest = 0;
  double noise = 0;
};

// (17 y(i) + 12 y(i+-1) - 3 y(i+-2)) / 35; two points at the left end and three at the right end
// stay.
Smoothed Smooth(std::span<const double> y) {
  const std::size_t n = y.size();
  Smoothed smoothed{{y.begin(), y.end()}};
  for (std::size_t i = 2; i + 3 < n; ++i) {
    const double value =
        (17 * y[i] + 12 * (y[i - 1] + y[i + 1]) - 3 * (y[i - 2] + y[i + 2])) / (105.0 / 3);
    smoothed.counts[i] = value;
    smoothed.noise += (y[i] - value) * (y[i] - value);
  }
  for (const double count : smoothed.counts) {
    smoothed.highest = std::max(smoothed.highest, count);
  }
  smoothed.noise = smoothed.noise * static_cast<double>(n) / static_cast<double>(n - 6);
  return smoothed;
}

// Second derivative over nine points with the weights 3 k^2 - 20; 0 on four points at each end.
std::vector<double> SecondDerivative(std::span<const double> y) {
  std::vector<double> second(y.size());
  for (std::size_t i = 4; i + 4 < y.size(); ++i) {
    second[i] = -20 * y[i] - 17 * (y[i + 1] + y[i - 1]) - 8 * (y[i + 2] + y[i - 2]) +
                7 * (y[i + 3] + y[i - 3]) + 28 * (y[i + 4] + y[i - 4]);
  }
  return second;
}

// Slope over nine points with the weights k; 0 on eight points at each end.
std::vector<double> Slope(std::span<const double> f) {
  std::vector<double> slope(f.size());
  for (std::size_t i = 8; i + 8 < f.size(); ++i) {
    slope[i] = (f[i + 1] - f[i - 1]) + 2 * (f[i + 2] - f[i - 2]) + 3 * (f[i + 3] - f[i - 3]) +
               4 * (f[i + 4] - f[i - 4]);
  }
  return slope;
}

// Zero crossings of the slope, positions from 1: -position for a minimum of the second derivative,
// which is a peak's centre, +position for a maximum, which is a flank. The signs alternate, and the
// last entry is a flank.
struct Crossings {
  Fixed<int, 0, kMaxCrossings> z;
  int count = 0;
};

Crossings FindCrossings(std::span<const double> slope) {
  const int n = static_cast<int>(slope.size());
  const auto nonzero_at = [&](int i) { return At(slope, i) == 0 ? 0.01 : At(slope, i); };
  Crossings found;
  double previous = nonzero_at(9);
  for (int i = 10; i <= n - 8; ++i) {
    const double current = nonzero_at(i);
    if (current * previous < 0) found.z[++found.count] = current > 0 ? -i : i;
    previous = current;
  }
  if (found.z[found.count] < 0) found.z[++found.count] = n - 7;
  return found;
}

PeakRec StartPeak(double height, double half_width, double center, std::int16_t func_type) {
  PeakRec peak;
  peak.FuncType = func_type;
  peak.Height = height;
  peak.GaussRatio = 1;
  peak.HalfWidth = half_width;
  peak.Center = center;
  return peak;
}

PeakRec PeakOfFind(const FoundPeak& find, int start, int n, std::int16_t func_type) {
  PeakRec peak = StartPeak(find.height, find.width, start + find.position - 1, func_type);
  const int reach = RoundToInt16(peak.HalfWidth * 1.8 * 2);
  const int center = RoundToInt16(peak.Center);
  // KEPT: a region cut at the left starts one channel further in than it is tested for; one that
  // ends just behind the range stays so.
  const int left = center - reach;
  const int right = center + reach;
  peak.RegionStart = ToInt16(left < start + 1 ? start + 2 : left);
  peak.RegionEnd = ToInt16(right > start + n ? start + n - 1 : right);
  return peak;
}

// The region of a wide range shrinks to the foot of the peak's right flank.
// KEPT: where the counts fall nowhere behind the peak, the foot is channel 0, and region and width
// come out of that.
void NarrowToFoot(std::span<const double> y, int start, PeakRec& peak) {
  double low = peak.Height;
  int foot = 0;
  const int n = static_cast<int>(y.size());
  for (int i = RoundToInt16(peak.Center) - start + 1; i <= n; ++i) {
    if (At(y, i) < low) {
      low = At(y, i);
      foot = start + i - 1;
    } else if (foot != 0) {
      break;
    }
  }
  peak.RegionStart = RoundToInt16(peak.Center - (foot - peak.Center));
  peak.RegionEnd = ToInt16(foot);
  peak.HalfWidth = (foot - peak.Center) / 3;
}

PeakRec WholeRangeAsPeak(std::span<const double> y, int start, std::int16_t func_type) {
  const int n = static_cast<int>(y.size());
  const auto top = std::max_element(y.begin(), y.end());
  const double center = start + static_cast<double>(top - y.begin());
  PeakRec peak = StartPeak(*top, n / 6.0, center, func_type);
  peak.RegionStart = ToInt16(start);
  peak.RegionEnd = ToInt16(start + n - 1);
  if (n >= kNarrowedFrom) NarrowToFoot(y, start, peak);
  return peak;
}

// The end of a range is cut at the last channel that can be read.
int ReadableChannels(std::span<const std::int32_t> counts, int start, int n) {
  return std::min(n, static_cast<int>(counts.size()) - start);
}

// Work arrays of one split of m parameters over n channels.
struct SplitSystem {
  SplitSystem(std::size_t n, std::size_t m)
      : jacobian(n * m), residuals(n), normal(m * m), right(m), step(m) {}

  std::vector<double> jacobian;  // row by channel
  std::vector<double> residuals;
  std::vector<double> normal;  // upper triangle, row by parameter
  std::vector<double> right;
  std::vector<double> step;
};

// sum(i) = sum over the peaks of a exp(-ln2 ((i - b) / c)^2). Fills Jacobian and residuals, returns
// their sum of squares. Unlike the shape of the single fit, the exponent isn't cut.
double Evaluate(std::span<const double> y, std::span<const double> q, SplitSystem& system) {
  constexpr double kLn2 = std::numbers::ln2;
  const std::size_t m = q.size();
  double sum_squares = 0;
  for (std::size_t i = 0; i < y.size(); ++i) {
    double* const row = &system.jacobian[i * m];
    double sum = 0;
    for (std::size_t k = 0; k < m; k += 3) {
      const double a = q[k];
      const double u = static_cast<double>(i + 1) - q[k + 1];
      const double w = Divide(1, q[k + 2]);
      const double g = std::exp(Finite(-kLn2 * w * w * u * u));
      row[k] = g;
      row[k + 1] = 2 * kLn2 * a * w * w * u * g;
      row[k + 2] = u * w * row[k + 1];
      sum += g * a;
    }
    const double residual = y[i] - sum;
    system.residuals[i] = residual;
    sum_squares += residual * residual;
  }
  return Finite(sum_squares);
}

void FillNormalEquations(SplitSystem& system) {
  const std::size_t m = system.step.size();
  std::fill(system.normal.begin(), system.normal.end(), 0.0);
  std::fill(system.right.begin(), system.right.end(), 0.0);
  for (std::size_t i = 0; i < system.residuals.size(); ++i) {
    const double* const row = &system.jacobian[i * m];
    for (std::size_t a = 0; a < m; ++a) {
      double* const sums = &system.normal[a * m];
      for (std::size_t b = a; b < m; ++b) sums[b] += row[a] * row[b];
      system.right[a] += system.residuals[i] * row[a];
    }
  }
}

// Elimination without pivoting on the upper triangle, then back substitution into `step`.
void SolveNormalEquations(SplitSystem& system) {
  const std::size_t m = system.step.size();
  const auto row = [&](std::size_t a) { return &system.normal[a * m]; };
  std::vector<double>& h = system.right;
  std::vector<double>& d = system.step;
  for (std::size_t a = 0; a < m; ++a) {
    const double pivot = Finite(row(a)[a]);
    for (std::size_t b = a + 1; b < m; ++b) {
      const double t = pivot == 0 ? 0 : Divide(row(a)[b], pivot);
      for (std::size_t c = b; c < m; ++c) row(b)[c] -= t * row(a)[c];
      h[b] -= t * h[a];
    }
  }
  for (std::size_t a = m; a-- > 0;) {
    double sum = 0;
    for (std::size_t b = a + 1; b < m; ++b) sum += row(a)[b] * d[b];
    d[a] = Divide(h[a] - sum, row(a)[a]);
  }
}

SplitSummary Iterate(std::span<const double> y, std::span<double> q, double limit) {
  SplitSystem system(y.size(), q.size());
  SplitSummary summary;
  for (;;) {
    summary.sum_squares = Evaluate(y, q, system);
    if (summary.steps == kMaxSplitSteps) {
      summary.status = SplitStatus::IterationLimit;
      return summary;
    }
    if (limit > summary.sum_squares) return summary;
    FillNormalEquations(system);
    SolveNormalEquations(system);
    for (std::size_t i = 0; i < q.size(); ++i) q[i] = Finite(q[i] + system.step[i]);
    ++summary.steps;
  }
}

}  // namespace

PeakFindResult PeakFind(std::span<const double> y, int sensitivity) {
  PeakFindResult result;
  if (y.size() < kMinFindPoints) return result;
  const double threshold = ThresholdOf(sensitivity);
  const Smoothed smoothed = Smooth(y);
  result.noise = smoothed.noise;
  const std::vector<double> second = SecondDerivative(y);
  const Crossings crossings = FindCrossings(Slope(second));
  const auto& z = crossings.z;
  const auto height_at = [&](int position) { return At(smoothed.counts, position); };
  const auto add = [&](int position, double width) {
    result.peaks.push_back({height_at(position), position, width});
  };
  const auto check_room = [&] {
    if (result.peaks.size() >= kMaxFinds) throw Fault(FaultCode::Subscript);
  };

  int base = 1;
  for (int k = 1; k <= crossings.count; ++k) {
    if (z[k] <= 0) {
      base = z[k + 1];
      // A range that starts within a peak: no flank on its left.
      if (k == 1 && !(height_at(-z[1]) < smoothed.highest / 15)) add(-z[1], z[2] + z[1]);
      continue;
    }
    if (k == crossings.count) continue;
    const int position = -z[k + 1];
    if (At(second, position) > 0) continue;
    check_room();
    const double width = std::max(position - z[k], z[k + 2] - position) / 4.0;
    if ((height_at(position) - height_at(base)) * width < threshold) continue;
    add(position, width);
  }
  return result;
}

std::vector<PeakRec> PeakSearch(std::span<const std::int32_t> counts, int start, int n,
                                int sensitivity, std::int16_t func_type, Dialogs& dialogs) {
  if (start < 0) return {};
  n = ReadableChannels(counts, start, n);
  if (n <= 1) return {};
  const auto range = counts.subspan(static_cast<std::size_t>(start), static_cast<std::size_t>(n));
  const std::vector<double> y(range.begin(), range.end());
  std::vector<FoundPeak> finds = PeakFind(y, sensitivity).peaks;
  if (finds.empty()) return {WholeRangeAsPeak(y, start, func_type)};
  if (finds.size() > kMaxPeaks) {
    dialogs.Message("No of Peak > 100 !");
    finds.resize(kMaxPeaks);
  }
  std::vector<PeakRec> peaks;
  peaks.reserve(finds.size());
  for (const FoundPeak& find : finds) peaks.push_back(PeakOfFind(find, start, n, func_type));
  return peaks;
}

SplitSummary GaussSumFit(std::span<const double> y, std::span<double> p, double limit) {
  if (p.empty()) return {};
  std::vector<double> q(p.begin(), p.end());
  try {
    const SplitSummary summary = Iterate(y, q, limit);
    std::copy(q.begin(), q.end(), p.begin());
    return summary;
  } catch (const Fault& fault) {
    SplitSummary summary;
    summary.status = SplitStatus::Faulted;
    summary.fault = fault.Code();
    return summary;
  }
}

int WaveSplit(std::span<const std::int32_t> counts, int start, int n, std::span<PeakRec> peaks,
              Dialogs& dialogs, LogSink& log) {
  if (n <= 0) return 0;
  if (n > kMaxSplitChannels) {
    dialogs.Message("too large region");
    return 0;
  }
  if (start < 0) throw Fault(FaultCode::Subscript);
  n = ReadableChannels(counts, start, n);
  if (n <= 0) return 0;

  const auto range = counts.subspan(static_cast<std::size_t>(start), static_cast<std::size_t>(n));
  const std::array<double, 2> end_channels = {static_cast<double>(start),
                                              static_cast<double>(start + n - 1)};
  const std::array<double, 2> end_counts = {static_cast<double>(range.front()),
                                            static_cast<double>(range.back())};
  const LineCoef background = LineFit(end_channels, end_counts);
  std::vector<double> y(range.size());
  for (std::size_t i = 0; i < y.size(); ++i) {
    const double channel = start + static_cast<double>(i);
    y[i] = std::max(range[i] - LineFunc(channel, background), 0.0);
  }
  std::vector<double> p;
  for (const PeakRec& peak : peaks) {
    p.insert(p.end(), {peak.Height, peak.Center - start + 1, peak.HalfWidth});
  }

  const SplitSummary summary = GaussSumFit(y, p, kSplitLimit);
  if (summary.status == SplitStatus::Faulted) {
    log.PutLog("CalWaveSprit : (Error)  code=" + std::to_string(static_cast<int>(summary.fault)));
    dialogs.Message("計算限界超えました。処理を終了します。");
  }
  for (std::size_t k = 0; k < peaks.size(); ++k) {
    PeakRec& peak = peaks[k];
    const double center = p[3 * k + 1];
    if (center < n) {
      peak.Height = p[3 * k];
      peak.HalfWidth = p[3 * k + 2];
      peak.Center = start + center - 1;
      // KEPT: also after a fault, with the values at the start.
      peak.FitDone = kTrue;
    }
    peak.BackConst = 0;
    peak.BackSlope = 0;
    peak.GaussRatio = 1;
    peak.FuncType = kGauss;
    peak.Errors = {};
  }
  return static_cast<int>(peaks.size());
}

}  // namespace dorvane
