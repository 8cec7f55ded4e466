#include "fitting/NaxGroupFit.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr std::size_t kPerPeak = 3;  // columns of a peak: position, height, k
constexpr std::size_t kBackground = 3;
constexpr int kNone = -1;

// A exp(-k (x - p)^2).
struct Gaussian {
  double position = 0;
  double height = 0;
  double k = 0;

  double At(double x) const {
    const double u = x - position;
    return height * ExpSafe(-k * (u * u));
  }
};

double SquareOf(double value) {
  return value * value;
}

// c1 + (c3 u + c2) u, the order of the terms in which the fit works.
double Parabola(const NaxBackground& c, double u) {
  return c.c1 + (c.c3 * u + c.c2) * u;
}

class Group {
 public:
  Group(std::span<const double> x, std::span<const double> y, const ScanControl& control,
        GroupFitWork& work)
      : x_(x), y_(y), control_(control), work_(work), mid_((x.front() + x.back()) / 2) {}

  GroupStatus Fit(std::span<const ScanPeak> peaks);
  void Result(GroupFitResult& result) const;

 private:
  bool FitBackground(std::span<const ScanPeak> peaks);
  void TakeStart(std::span<const ScanPeak> peaks);
  void BeginTry(double factor);
  GroupStatus Iterate(int& failed);
  void FillDesign();
  int TakeSteps(double& change);
  void Remove(int peak);
  std::array<double, kMaxLsqColumns> CountingErrors() const;

  std::size_t Count() const { return static_cast<std::size_t>(count_); }
  std::size_t Columns() const { return kPerPeak * Count() + kBackground; }
  std::span<Gaussian> Start() { return std::span(start_).first(Count()); }
  std::span<Gaussian> Now() { return std::span(now_).first(Count()); }

  std::span<const double> x_;
  std::span<const double> y_;
  const ScanControl& control_;
  GroupFitWork& work_;
  double mid_;
  int count_ = 0;
  double max_shift_ = 0;
  std::array<Gaussian, kMaxGroupPeaks> start_;
  NaxBackground start_background_;
  std::array<Gaussian, kMaxGroupPeaks> now_;
  NaxBackground background_;
  std::array<double, kMaxLsqColumns> step_{};
  std::array<double, kMaxLsqColumns> error_{};
};

bool Group::FitBackground(std::span<const ScanPeak> peaks) {
  const double zone = control_.ScanReal[kZone];
  std::size_t points = 0;
  for (std::size_t i = 0; i < x_.size(); ++i) {
    const bool inside = std::ranges::any_of(peaks, [&](const ScanPeak& peak) {
      return std::abs(x_[i] - peak.position) < zone * peak.width;
    });
    if (inside) continue;
    const double u = x_[i] - mid_;
    double* const row = work_.design.Row(points);
    row[0] = 1;
    row[1] = u;
    row[2] = u * u;
    work_.residuals[points++] = y_[i];
  }
  std::array<double, kBackground> c{};
  const auto columns = static_cast<std::size_t>(control_.ScanInt[kBackgroundColumns]);
  if (!Lsq(work_.design, std::span(work_.residuals).first(points), work_.matrix, LsqStart::Build,
           control_.ScanReal[kSmallest], std::span(c).first(columns))) {
    return false;
  }
  start_background_ = {c[0], c[1], c[2]};
  return true;
}

void Group::TakeStart(std::span<const ScanPeak> peaks) {
  count_ = static_cast<int>(peaks.size());
  for (std::size_t p = 0; p < peaks.size(); ++p) {
    const ScanPeak& found = peaks[p];
    max_shift_ = std::max(max_shift_, found.width);
    start_[p].position = found.position;
    start_[p].height = found.height - Parabola(start_background_, found.position - mid_);
    start_[p].k = SquareOf(Divide(kNaxWidthFactor, found.width));
  }
}

// The heights lose what the other peaks, as sharp as in this try, add at their positions.
void Group::BeginTry(double factor) {
  for (std::size_t p = 0; p < Count(); ++p) {
    now_[p] = start_[p];
    now_[p].k = factor * start_[p].k;
    for (std::size_t m = 0; m < Count(); ++m) {
      if (m == p) continue;
      const Gaussian other{start_[m].position, start_[m].height, factor * start_[m].k};
      now_[p].height -= other.At(now_[p].position);
    }
  }
  background_ = start_background_;
}

// With F = A E, E = exp(-k u^2), u = x - p: dF/dp = 2 k u F, dF/dA = E, dF/dk = -u^2 F.
void Group::FillDesign() {
  for (std::size_t i = 0; i < x_.size(); ++i) {
    double* column = work_.design.Row(i);
    const double from_mid = x_[i] - mid_;
    double residual = y_[i] - Parabola(background_, from_mid);
    for (const Gaussian& peak : Now()) {
      const double u = x_[i] - peak.position;
      const double e = ExpSafe(-peak.k * (u * u));
      const double f = peak.height * e;
      residual -= f;
      *column++ = 2 * peak.k * u * f;
      *column++ = e;
      *column++ = -(u * u) * f;
    }
    *column++ = 1;
    *column++ = from_mid;
    *column++ = from_mid * from_mid;
    work_.residuals[i] = residual;
  }
}

// The peak at which the try fails, or none. `change` is the greatest one: channels of a position,
// shares of a height and of a k.
int Group::TakeSteps(double& change) {
  const double smallest = control_.ScanReal[kSmallest];
  change = 0;
  const double* step = step_.data();
  for (int p = 0; p < count_; ++p, step += kPerPeak) {
    Gaussian& peak = now_[static_cast<std::size_t>(p)];
    peak.position += step[0];
    if (std::abs(step[0]) > max_shift_) return p;
    change = std::max(change, std::abs(step[0]));
    peak.k += step[2];
    if (peak.k <= smallest) return p;
    change = std::max(change, std::abs(step[2]) / peak.k);
    peak.height += step[1];
    if (peak.height <= smallest) return p;
    change = std::max(change, std::abs(step[1] / peak.height));
  }
  background_.c1 += step[0];
  background_.c2 += step[1];
  background_.c3 += step[2];
  return kNone;
}

// `failed` is the peak at which the try fails, or none: the status counts then.
GroupStatus Group::Iterate(int& failed) {
  failed = kNone;
  const auto& real = control_.ScanReal;
  double change = real[kLargestChange] + 1;
  for (int iteration = 1; iteration <= control_.ScanInt[kIterationLimit]; ++iteration) {
    if (change <= real[kLargestChange]) return GroupStatus::Converged;
    FillDesign();
    // KEPT: a singular step loses the whole group, not one peak or one try.
    if (!Lsq(work_.design, std::span(work_.residuals).first(x_.size()), work_.matrix,
             LsqStart::Build, real[kSmallest], std::span(step_).first(Columns()),
             std::span(error_).first(Columns()))) {
      return GroupStatus::Failed;
    }
    failed = TakeSteps(change);
    if (failed != kNone) return GroupStatus::Failed;
  }
  return GroupStatus::IterationLimit;
}

void Group::Remove(int peak) {
  std::move(start_.begin() + peak + 1, start_.begin() + count_, start_.begin() + peak);
  --count_;
}

GroupStatus Group::Fit(std::span<const ScanPeak> peaks) {
  if (!FitBackground(peaks)) return GroupStatus::Failed;
  TakeStart(peaks);
  const auto& real = control_.ScanReal;
  while (count_ > 0) {
    int failed = kNone;
    BeginTry(1);
    GroupStatus status = Iterate(failed);
    if (failed != kNone) {
      // KEPT: the step of the factor is lost in the rounding, so that all restarts begin with peaks
      // four times as sharp, when a weak peak mostly needs wider ones. They would repeat each other
      // up to ScanInt(7) times to the last bit: the first one decides.
      const double rounded = RoundHalfEven(real[kSharpening]);
      BeginTry(RoundHalfEven(std::trunc(rounded) + real[kSharpeningStep]));
      status = Iterate(failed);
    }
    if (failed == kNone) return status;
    // KEPT: the peak at which the restart fails goes, though it may be a good one that was too
    // sharp, and another the one that doesn't fit.
    Remove(failed);
  }
  return GroupStatus::Failed;
}

// Standard errors of the coefficients B = T Y, T = (X'X)^-1 X', of the last step. Its counts are
// not weighted, but do not scatter alike: the variance of B(a) is the sum of T(a,i)^2 var Y(i)
// (H. White, Econometrica 48 (1980) 817), here with the variance of a Poisson process, the count.
std::array<double, kMaxLsqColumns> Group::CountingErrors() const {
  const LsqMatrix& matrix = work_.matrix;
  std::array<double, kMaxLsqColumns> errors{};
  for (std::size_t a = 0; a < kPerPeak * Count(); ++a) {
    double variance = 0;
    for (std::size_t i = 0; i < x_.size(); ++i) {
      const double* const row = work_.design.Row(i);
      double t = 0;
      for (std::size_t b = 0; b < Columns(); ++b) {
        t += matrix.inverse[a][b] / matrix.scale[b] * row[b];
      }
      variance += t * t * std::max(y_[i], 0.0);
    }
    errors[a] = Divide(std::sqrt(Finite(variance)), matrix.scale[a]);
  }
  return errors;
}

void Group::Result(GroupFitResult& result) const {
  result.count = count_;
  std::array<double, kMaxLsqColumns> counting{};
  if (result.status == GroupStatus::Converged) counting = CountingErrors();
  for (std::size_t p = 0; p < Count(); ++p) {
    const Gaussian& fitted = now_[p];
    const double* const error = &error_[kPerPeak * p];
    NaxPeak& peak = result.peaks[p];
    peak.position = fitted.position;
    peak.height = fitted.height;
    peak.fwhm = kNaxWidthFactor / std::sqrt(fitted.k);
    peak.position_error = error[0];
    peak.height_error = error[1];
    peak.fwhm_error = peak.fwhm * 0.5 * error[2] / fitted.k;
    peak.errors.Center = counting[kPerPeak * p];
    peak.errors.Height = counting[kPerPeak * p + 1];
    peak.errors.HalfWidth = peak.fwhm / 4 * counting[kPerPeak * p + 2] / fitted.k;
    peak.background = background_;
  }
}

}  // namespace

std::string_view GroupStatusText(GroupStatus status) {
  static constexpr std::array<std::string_view, 3> kTexts = {"CONV", "MXST", "DIV "};
  return kTexts[static_cast<std::size_t>(status) - 1];
}

GroupFitResult GroupFit(std::span<const double> x, std::span<const double> y,
                        std::span<const ScanPeak> peaks, const ScanControl& control,
                        GroupFitWork& work) {
  if (x.size() != y.size()) throw Fault(FaultCode::BadArgument);
  if (x.size() > kMaxLsqPoints || peaks.size() > kMaxGroupPeaks) throw Fault(FaultCode::Subscript);
  GroupFitResult result;
  if (x.empty()) return result;
  try {
    Group group(x, y, control, work);
    result.status = group.Fit(peaks);
    if (result.status != GroupStatus::Failed) group.Result(result);
  } catch (const Fault&) {
    return {};
  }
  return result;
}

}  // namespace dorvane
