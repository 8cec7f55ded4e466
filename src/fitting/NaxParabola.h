// The parabola that slides over a spectrum, and the run of windows in which it shows a peak.
#pragma once

#include <span>

#include "fitting/NaxLsq.h"
#include "fitting/NaxScanSetup.h"

namespace dorvane {

// b1 + b2 u + b3 u^2 counts over a window, u in channels from its centre.
struct WindowParabola {
  double b1 = 0;
  double b2 = 0;
  double b3 = 0;
  double b3_error = 0;  // standard error by the scatter in the window
};

// Least-squares parabolas over windows of 2 h + 1 neighbouring channels, h in 1..249. Channels are
// equally spaced, so that all windows have one matrix, which is inverted once. 137 KB.
class SlidingParabola {
 public:
  // Throws Fault(Subscript) for h outside of 1..249.
  SlidingParabola(int half_window, double tol);

  // `counts` are the 2 h + 1 of the window; throws Fault(BadArgument) for another number of them.
  WindowParabola Fit(std::span<const double> counts);

 private:
  std::size_t points_;
  double tol_;
  bool inverted_ = false;
  LsqDesign design_;
  LsqMatrix matrix_;
};

// Whether a window shows a significant peak: b3 lies below minus the noise by more than the share
// of its error. `spacing` is that of the two neighbours of the centre, channels.
bool ShowsPeak(const WindowParabola& window, double spacing, const ScanControl& control);

// Windows that show one peak, and the one of the sharpest curvature among them.
class PeakRun {
 public:
  int Length() const { return length_; }
  // Centre of the sharpest window, a channel number. Of an open run only.
  double Channel() const { return channel_; }

  // `channel` is the window's centre, `greatest` the greatest count about it.
  void Extend(const WindowParabola& window, double channel, double greatest);
  void Close() { length_ = 0; }

  // The peak of the run: its position is the vertex of the sharpest parabola, or the window's
  // centre where that lies further away than `spacing`. Throws Fault(DivisionByZero) for a b3 of 0,
  // which only a negative noise lets pass.
  ScanPeak Peak(double spacing, const ScanControl& control) const;

 private:
  int length_ = 0;
  WindowParabola sharpest_;
  double channel_ = 0;
  double greatest_ = 0;
};

}  // namespace dorvane
