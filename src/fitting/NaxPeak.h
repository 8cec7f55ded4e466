// One result of a Nax fit, and the background curve that it leaves behind.
#pragma once

#include "workspace/Workspace.h"

namespace dorvane {

// Full width at half maximum over the width w of exp(-((x - p) / w)^2): 2 sqrt(ln 2).
inline constexpr double kNaxWidthFactor = 1.6651092;

// c1 + c2 u + c3 u^2 counts, u in channels.
struct NaxBackground {
  double c1 = 0;
  double c2 = 0;
  double c3 = 0;

  double At(double u) const { return c1 + c2 * u + c3 * u * u; }
};

// A Gaussian and the background of the region or group that it was fitted in.
struct NaxPeak {
  double position = 0;  // channel number: the first channel of a spectrum is 1
  double height = 0;    // counts
  double fwhm = 0;      // channels
  // As the fit estimates them: of a region from its weights, the square roots of the counts; of a
  // group from the mean square of its residuals, as if all counts scattered alike.
  double position_error = 0;
  double height_error = 0;
  double fwhm_error = 0;
  // Of counts whose variance is the count; zeros where the fit has not converged.
  PeakErrors errors;
  NaxBackground background;
};

enum class OutsideFitBack { Fault, Skip };

// Writes the background under the peak, from position - fwhm to position + fwhm, each end rounded,
// at u = channel index - position; nothing for a width of 0 or less. Channels that the table does
// not have and values that are no 32-bit number throw Fault(Subscript or Overflow), after what lies
// below them has been written, or are skipped.
void WriteFitBack(const NaxPeak& peak, OutsideFitBack outside, FitBackTable& table);

}  // namespace dorvane
