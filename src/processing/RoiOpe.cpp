#include "processing/RoiOpe.h"

#include <algorithm>
#include <utility>

namespace dorvane {

AreaRegion GetRegions(ViewState& view) {
  const std::int16_t first = std::exchange(view.AreaStart, kNoEnd);
  const std::int16_t second = std::exchange(view.AreaEnd, kNoEnd);
  if (first == kNoEnd || second == kNoEnd || first == second) return {};
  const auto [start, end] = std::minmax({first, second});
  return {start, end, true};
}

void RoiClear(RoiTable& regions) {
  regions.RoiCount = 0;
}

}  // namespace dorvane
