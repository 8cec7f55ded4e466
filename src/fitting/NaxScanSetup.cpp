#include "fitting/NaxScanSetup.h"

#include <algorithm>

#include "support/Rounding.h"

namespace dorvane {

ScanControl ScanSetup(double peak_width_ch, double bg_coef, int last_channel) {
  ScanControl control;
  auto& whole = control.ScanInt;
  whole[kListingLevel] = 3;
  whole[kHalfWindow] = 10;
  whole[kRunBase] = 4;
  whole[kGroupReach] = RoundToInt16(peak_width_ch + whole[kRunBase]);
  whole[kIterationLimit] = 50;
  whole[kRestartLimit] = 20;
  whole[kBackgroundColumns] = std::max<std::int16_t>(2 + 1, 3);
  whole[kFirstChannel] = 1;
  whole[kLastChannel] = ToInt16(last_channel);

  auto& real = control.ScanReal;
  real[kErrorShare] = 0.5;
  real[kFoundWidth] = 1.0;
  real[kSmallest] = 1e-6;
  real[kLargestChange] = 5e-4;
  real[kNoiseCurvature] = bg_coef;
  real[kSharpening] = 1 / (0.5 * 0.5) - 1 / (2.0 * 2.0);
  real[kSharpeningStep] = 1 / (2.0 * 2.0);
  real[kZone] = 2 * 0.5;
  return control;
}

}  // namespace dorvane
