#include "fitting/NaxParabola.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "support/Rounding.h"

namespace dorvane {

SlidingParabola::SlidingParabola(int half_window, double tol)
    : points_(static_cast<std::size_t>(2 * half_window + 1)), tol_(tol) {
  if (half_window < 1 || points_ > kMaxLsqPoints) throw Fault(FaultCode::Subscript);
  for (std::size_t i = 0; i < points_; ++i) {
    const double u = static_cast<double>(i) - half_window;
    double* const row = design_.Row(i);
    row[0] = 1;
    row[1] = u;
    row[2] = u * u;
  }
}

WindowParabola SlidingParabola::Fit(std::span<const double> counts) {
  if (counts.size() != points_) throw Fault(FaultCode::BadArgument);
  std::array<double, 3> b{};
  std::array<double, 3> errors{};
  const LsqStart start = inverted_ ? LsqStart::KeepInverse : LsqStart::Build;
  inverted_ = Lsq(design_, counts, matrix_, start, tol_, b, errors);
  return {b[0], b[1], b[2], errors[2]};
}

bool ShowsPeak(const WindowParabola& window, double spacing, const ScanControl& control) {
  const auto& real = control.ScanReal;
  const double noise = Divide(real[kNoiseCurvature], spacing * spacing);
  return window.b3_error * real[kErrorShare] + window.b3 + noise < 0;
}

void PeakRun::Extend(const WindowParabola& window, double channel, double greatest) {
  if (length_ == 0 || window.b3 < sharpest_.b3) {
    sharpest_ = window;
    channel_ = channel;
    greatest_ = greatest;
  }
  ++length_;
}

ScanPeak PeakRun::Peak(double spacing, const ScanControl& control) const {
  double offset = Divide(-0.5 * sharpest_.b2, sharpest_.b3);
  if (std::abs(offset) > spacing) offset = 0;
  ScanPeak peak;
  peak.position = channel_ + offset;
  peak.height = std::max(0.5 * sharpest_.b2 * offset + sharpest_.b1, greatest_);
  peak.width = control.ScanReal[kFoundWidth] * 0.5 * length_ * spacing;
  peak.channel = channel_;
  return peak;
}

}  // namespace dorvane
