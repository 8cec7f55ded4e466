// The regions of interest and the range that the user marks with the area cursor.
#pragma once

#include <cstdint>

#include "workspace/RoiRec.h"
#include "workspace/ViewState.h"

namespace dorvane {

// A marked range of channel indices.
struct AreaRegion {
  std::int16_t start = kNoEnd;  // not above `end`
  std::int16_t end = kNoEnd;
  bool valid = false;  // both ends were set and differ; otherwise both are -1
};

// The range of the area cursor. The stored ends are cleared at every call, whatever is found: a
// command asks once.
AreaRegion GetRegions(ViewState& view);

// Empties the table.
void RoiClear(RoiTable& regions);

}  // namespace dorvane
