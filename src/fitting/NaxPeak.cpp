#include "fitting/NaxPeak.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "support/Rounding.h"

namespace dorvane {
namespace {

// Any index outside of the table stands for all others.
int NearTable(double index) {
  return static_cast<int>(std::clamp<double>(index, -1, kFitBackChannels));
}

bool HasInt32(double value) {
  return std::abs(value) <= std::numeric_limits<std::int32_t>::max();
}

}  // namespace

void WriteFitBack(const NaxPeak& peak, OutsideFitBack outside, FitBackTable& table) {
  if (peak.fwhm == 0) return;
  // The index of a channel is one below its number.
  const int first = NearTable(RoundHalfEven(Finite(peak.position - peak.fwhm)) - 1);
  const int last = NearTable(RoundHalfEven(Finite(peak.position + peak.fwhm)) - 1);
  for (int channel = first; channel <= last; ++channel) {
    // KEPT: the coefficients belong to the distance from the middle of the fitted channels, and are
    // taken here with the distance from the peak, of an index and a number at that.
    const double value = peak.background.At(channel - peak.position);
    if (outside == OutsideFitBack::Skip) {
      const bool stored = channel >= 0 && channel < kFitBackChannels;
      if (!stored || !HasInt32(value)) continue;
    }
    table[channel] = RoundToInt32(value);
  }
}

}  // namespace dorvane
