// What a graph window shows: which graphs of the list, their regions, and what its axes stand for.
#pragma once

#include <cstdint>
#include <vector>

#include "display/Overlay.h"
#include "program/Program.h"

namespace dorvane {

// Whether a row of the list is drawn in a window, hidden or not. An expansion shows the graphs of
// the first window, which holds all graphs of a pile.
bool ShowsRow(const Program& program, int win_no, const GraphSlot& slot);
// Whether any row is.
bool ShowsGraph(const Program& program, int win_no);
// The rows that are, and are not hidden, in the order of the list.
std::vector<const GraphSlot*> ShownGraphs(const Program& program, int win_no);

// The regions of all graphs of a window.
std::vector<ChannelRange> RegionsOf(const Program& program, int win_no);

// Height of its count axis in counts, or the decades of the logarithmic one. A window that does not
// pile up graphs keeps the height that it had.
std::int32_t AxisHeight(const Program& program, int win_no);
// The spectrum whose calibration its unit axis has: that of the row selected in the window, else of
// the first row.
int AxisDataNo(const Program& program, int win_no);

}  // namespace dorvane
