// The fit of neighbouring peaks in the scan of a spectrum: Gaussians on a parabola, together.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "fitting/NaxLsq.h"
#include "fitting/NaxPeak.h"
#include "fitting/NaxScanSetup.h"

namespace dorvane {

inline constexpr int kMaxGroupPeaks = 9;

// How a group ended. The numbers are the system's own.
enum class GroupStatus {
  Converged = 1,       // no change of an iteration above ScanReal(5)
  IterationLimit = 2,  // still moving after ScanInt(6) iterations; the values stand
  Failed = 3,          // no background, a singular step, or no peak left
};

// "CONV", "MXST" or "DIV ".
std::string_view GroupStatusText(GroupStatus status);

struct GroupFitResult {
  GroupStatus status = GroupStatus::Failed;
  int count = 0;  // peaks that are left; 0 after a failure
  std::array<NaxPeak, kMaxGroupPeaks> peaks;

  std::span<const NaxPeak> Peaks() const {
    return std::span(peaks).first(static_cast<std::size_t>(count));
  }
};

// Room for one group fit at a time. 137 KB.
struct GroupFitWork {
  LsqDesign design;
  LsqMatrix matrix;
  std::array<double, kMaxLsqPoints> residuals{};
};

// Fits 1..9 peaks to the counts y at the channels x, up to 500 points, unweighted, by Gauss-Newton
// steps without damping. A Gaussian is A exp(-k (x - p)^2); peaks start above the parabola through
// the points outside of all their zones. A peak that moves by more than the greatest starting width
// of the group, or whose height or k falls to ScanReal(4), fails the attempt; a second one starts
// with all peaks sharper, and when that fails too the peak is taken out of the group.
//
// Fails where there are no points, and where a value is no finite number. Throws Fault(Subscript)
// for more points or peaks, Fault(BadArgument) for x and y of different sizes. Allocates nothing.
GroupFitResult GroupFit(std::span<const double> x, std::span<const double> y,
                        std::span<const ScanPeak> peaks, const ScanControl& control,
                        GroupFitWork& work);

}  // namespace dorvane
