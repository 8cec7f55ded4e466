// The regions of interest: one table for the whole workspace.
#pragma once

#include <cstdint>

#include "support/Fixed.h"

namespace dorvane {

constexpr int kMaxRois = 10;

struct RoiRec {
  std::int16_t DataNo = 0;
  std::int16_t Start = 0;  // first channel index
  std::int16_t End = 0;    // last channel index
  double PeakVal = 0;      // highest count
  double PeakCh = 0;       // its channel index
  double Total = 0;        // sum of the counts
  std::int32_t Color = 0;

  friend bool operator==(const RoiRec&, const RoiRec&) = default;
};

// Ascending by Start as long as no entry is changed; entries 0..RoiCount-1 are in use.
struct RoiTable {
  std::int16_t RoiCount = 0;
  Fixed<RoiRec, 0, kMaxRois - 1> Rois;

  friend bool operator==(const RoiTable&, const RoiTable&) = default;
};

}  // namespace dorvane
