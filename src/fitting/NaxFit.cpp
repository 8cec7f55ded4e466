#include "fitting/NaxFit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr double kStartFwhm = 10;  // channels
constexpr int kHighestChannel = 4096;
constexpr std::size_t kBackgroundPoints = 10;  // at each end of the region
constexpr double kSortLimit = 5000;            // channel number

// Parameters of peak k, from 1.
struct PeakParams {
  explicit PeakParams(int k) : amplitude(3 * k - 2), position(3 * k - 1), width(3 * k) {}
  int amplitude, position, width;
};

std::span<double> Used(NaxParams& values, int count) {
  return values.All().subspan(1, static_cast<std::size_t>(count));
}

double WeightOf(std::int32_t count) {
  return count < 1 ? 1 : std::sqrt(static_cast<double>(count));
}

double At(const NaxRegion& region, std::size_t point) {
  return region.first_x + static_cast<double>(point);
}

void FillBackground(double x, double* columns) {
  columns[0] = 1;
  columns[1] = x;
  columns[2] = x * x;
}

// The parabola through the ends of the region.
bool FitBackground(NaxRegion& region, const NaxLimits& limits, NaxArrays& arrays) {
  const std::size_t n = region.counts.size();
  const std::size_t at_end = std::min(kBackgroundPoints, n);
  for (std::size_t i = 0; i < 2 * at_end; ++i) {
    // In a region of fewer than twenty channels those in the middle count twice.
    const std::size_t point = i < at_end ? i : n - 2 * at_end + i;
    FillBackground(At(region, point), arrays.X.Row(i));
    arrays.DataY[i] = region.counts[point];
  }
  const int first = 3 * region.peak_num + 1;
  return Lsq(arrays.X, std::span(arrays.DataY).first(2 * at_end), arrays.Cov, LsqStart::Build,
             limits.TolDet, region.P.All().subspan(static_cast<std::size_t>(first), 3));
}

class DampedIteration {
 public:
  DampedIteration(NaxRegion& region, const NaxLimits& limits, LogSink& log, Progress& progress)
      : region_(region), limits_(limits), log_(log), progress_(progress) {}

  NaxFitSummary Run();

 private:
  // How the search for a step that helps has ended.
  enum class Trial { Accepted, Exhausted, Failed };

  bool Prepare(NaxStep& step) { return PrepLsq(region_, limits_, arrays_, step, log_); }
  // False: the fit is over without results.
  bool Iterate();
  Trial TryDamped(NaxStep& next);
  bool AfterAccepted(double chi_old);
  bool AfterExhausted();
  bool StepsAreSmall() const;
  bool Breathe();
  void End(std::int16_t result, std::string_view text);
  void Move(double damp);

  double Crit() const { return std::max(limits_.TolChi, std::sqrt(limits_.TolPar)); }

  NaxRegion& region_;
  const NaxLimits& limits_;
  LogSink& log_;
  Progress& progress_;
  NaxArrays arrays_;
  NaxStep step_;
  NaxFitSummary summary_;
  double damp_ = 1;
  int failed_ = 0;
  bool ended_ = false;
};

NaxFitSummary DampedIteration::Run() {
  if (!FitBackground(region_, limits_, arrays_)) {
    log_.PutLog("LSQ FOR BACK GROUND FAILED");
    return summary_;
  }
  if (!Prepare(step_)) return summary_;
  while (!ended_ && summary_.iterations < limits_.MaxIter) {
    ++summary_.iterations;
    if (!Iterate()) return summary_;
  }
  summary_.ok = true;
  summary_.chi = step_.chi;
  summary_.peaks = FitResult(region_, step_.Err);
  if (summary_.result != kNaxConverged && summary_.result != kNaxLowChi) return summary_;
  for (NaxPeak& peak : summary_.peaks) {
    peak.errors.Center = peak.position_error;
    peak.errors.Height = peak.height_error;
    peak.errors.HalfWidth = peak.fwhm_error / 2;
  }
  return summary_;
}

bool DampedIteration::Iterate() {
  damp_ = std::min(2 * damp_, 1.0);
  NaxStep next;
  switch (TryDamped(next)) {
    case Trial::Failed:
      return false;
    case Trial::Exhausted:
      return AfterExhausted();
    case Trial::Accepted:
      break;
  }
  const double chi_old = std::exchange(step_, next).chi;
  return AfterAccepted(chi_old);
}

// Halves the step until chi-square doesn't grow.
DampedIteration::Trial DampedIteration::TryDamped(NaxStep& next) {
  const double damp_min = std::ldexp(1.0, -limits_.DampBits);
  while (true) {
    Move(damp_);
    if (!Prepare(next)) return Trial::Failed;
    if (next.chi < step_.chi) return Trial::Accepted;
    if (next.chi <= (Crit() + 1) * step_.chi) {
      log_.PutLog("CHI-SQ SLIGHTLY INCREASED WITHIN ACCEPTABLE ERROR");
      return Trial::Accepted;
    }
    Move(-damp_);
    if (damp_ <= damp_min) return Trial::Exhausted;
    damp_ *= 0.5;
    if (!Breathe()) return Trial::Failed;
  }
}

void DampedIteration::Move(double damp) {
  for (int i = 1; i <= region_.ParamCount(); ++i) region_.P[i] += damp * step_.Step[i];
}

bool DampedIteration::AfterAccepted(double chi_old) {
  summary_.result = kNaxIterations;
  if (!Breathe()) return false;
  if (step_.chi <= limits_.TolPar) {
    End(kNaxConverged, "CHI-SQ LESS THAAN " + PlainNumber(limits_.TolPar) + " CONV");
  } else if (chi_old - step_.chi <= (step_.chi + 1) * Crit() && StepsAreSmall()) {
    End(kNaxConverged, "ALL DISTANCE R(I) SMALL ENOUGH CONV");
  }
  return true;
}

bool DampedIteration::AfterExhausted() {
  ++failed_;
  if (!Breathe()) return false;
  if (failed_ >= limits_.MaxDampFail) {
    End(kNaxDampingOver, "ITERATION OF DAMP OVER");
    return true;
  }
  log_.PutLog("RESIDUAL NOT DECREASE CONTINUE");
  if (step_.chi < limits_.TolPar) {
    End(kNaxLowChi, "CHI-SQ LESS THAN " + PlainNumber(limits_.TolPar) + " STOP");
    return true;
  }
  summary_.result = kNaxIterations;
  return Prepare(step_);
}

bool DampedIteration::StepsAreSmall() const {
  for (int i = 1; i <= region_.ParamCount(); ++i) {
    const double limit =
        std::max(step_.Err[i] * limits_.TolDist, std::abs(region_.P[i]) * limits_.TolPar);
    if (std::abs(step_.Step[i]) > limit) return false;
  }
  return true;
}

bool DampedIteration::Breathe() {
  progress_.Report(summary_.iterations, limits_.MaxIter);
  summary_.stopped = progress_.Cancelled();
  return !summary_.stopped;
}

void DampedIteration::End(std::int16_t result, std::string_view text) {
  summary_.result = result;
  log_.PutLog(text);
  ended_ = true;
}

}  // namespace

PeakValue PeakModel(double A, double Q, double W, double x) {
  const double u = Q - x;
  const double v = Divide(u, W * W);
  const double E = ExpSafe(Finite(-v * u));
  const double y = A * E;
  return {y, E, -2 * v * y, 2 * u * v * y / W};
}

std::int16_t COND(std::span<const std::int32_t> spectrum, const ManualFitList& list,
                  NaxRegion& region) {
  region = {};
  region.peak_num = list.PeakNum;
  if (list.PeakNum < 0 || list.PeakNum > kMaxManualPeaks) throw Fault(FaultCode::Subscript);
  region.mid = (list.StartCh + list.EndCh) / 2.0;
  region.first_x = list.StartCh - region.mid;
  const int n = list.EndCh - list.StartCh + 1;
  const int channels = std::min(static_cast<int>(spectrum.size()), kHighestChannel);
  const bool inside = list.StartCh >= 1 && list.EndCh <= channels && n > 0;
  if (n > static_cast<int>(kMaxLsqPoints) || !inside) return 0;
  region.counts =
      spectrum.subspan(static_cast<std::size_t>(list.StartCh - 1), static_cast<std::size_t>(n));
  for (int k = 1; k <= list.PeakNum; ++k) {
    const PeakParams at(k);
    // KEPT: a negative number leaves all that follow at 0, the width of this peak at least, and
    // the fit goes on with them.
    if (list.MaxCount[k - 1] < 0) return 0;
    region.P[at.amplitude] = list.MaxCount[k - 1];
    const std::int16_t center = list.CenterCh[k - 1];
    if (center < 0) return 0;
    if (center < list.StartCh || center > list.EndCh) return -1;
    region.P[at.position] = center - region.mid;
    // KEPT: every fit starts with the same width, whatever the list tells.
    if (list.ChWidth[k - 1] < 0) return 0;
    region.P[at.width] = kStartFwhm / kNaxWidthFactor;
  }
  return 0;
}

bool PrepLsq(const NaxRegion& region, const NaxLimits& limits, NaxArrays& arrays, NaxStep& step,
             LogSink& log) {
  const std::size_t n = region.counts.size();
  const int params = region.ParamCount();
  const NaxBackground background = region.Background();
  step.chi = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const double x = At(region, i);
    double* const row = arrays.X.Row(i);
    double f = (background.c3 * x + background.c2) * x + background.c1;
    double* columns = row;
    for (int k = 1; k <= region.peak_num; ++k, columns += 3) {
      const PeakParams at(k);
      const PeakValue peak =
          PeakModel(region.P[at.amplitude], region.P[at.position], region.P[at.width], x);
      f += peak.y;
      columns[0] = peak.dA;
      columns[1] = peak.dQ;
      columns[2] = peak.dW;
    }
    FillBackground(x, columns);
    const double weight = WeightOf(region.counts[i]);
    FillColumn(row, static_cast<std::size_t>(params),
               [=](std::size_t a) { return row[a] / weight; });
    const double residual = (region.counts[i] - f) / weight;
    arrays.DataY[i] = residual;
    step.chi += residual * residual;
  }
  step.chi = Finite(Divide(step.chi, static_cast<double>(n) - params));
  if (!Lsq(arrays.X, std::span(arrays.DataY).first(n), arrays.Cov, LsqStart::Build, limits.TolDet,
           Used(step.Step, params))) {
    log.PutLog("LSQ IN PREP UNSUCCESSFUL");
    return false;
  }
  for (int i = 1; i <= params; ++i) {
    step.Err[i] = Finite(arrays.Cov.UnitError(static_cast<std::size_t>(i - 1)));
  }
  return true;
}

NaxFitSummary DampedLsq(NaxRegion& region, const NaxLimits& limits, LogSink& log,
                        Progress& progress) {
  return DampedIteration(region, limits, log, progress).Run();
}

std::vector<NaxPeak> FitResult(const NaxRegion& region, const NaxParams& errors) {
  std::vector<NaxPeak> peaks;
  for (int k = 1; k <= region.peak_num; ++k) {
    const PeakParams at(k);
    NaxPeak peak;
    peak.position = region.mid + region.P[at.position];
    peak.height = region.P[at.amplitude];
    peak.fwhm = Finite(region.P[at.width] * kNaxWidthFactor);
    peak.position_error = errors[at.position];
    peak.height_error = errors[at.amplitude];
    peak.fwhm_error = Finite(errors[at.width] * kNaxWidthFactor);
    peak.background = region.Background();
    peaks.push_back(peak);
  }
  // KEPT: each search starts with a limit in place of a peak, so that peaks behind it stay in
  // whatever order they are.
  for (std::size_t i = 0; i < peaks.size(); ++i) {
    double least = kSortLimit;
    std::size_t next = i;
    for (std::size_t j = i; j < peaks.size(); ++j) {
      if (peaks[j].position >= least) continue;
      least = peaks[j].position;
      next = j;
    }
    std::swap(peaks[i], peaks[next]);
  }
  return peaks;
}

}  // namespace dorvane
