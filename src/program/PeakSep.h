// The split of a group of overlapping peaks by the area cursor.
#pragma once

#include "program/Program.h"

namespace dorvane {

// mnuPeakSep: refines the peaks of the area cursor together, found first where it holds none, and
// makes the graph "Fit". Works on the current graph; `win_no` is its window. Ends quietly without
// an area, with one that starts at channel 0, without a peak in it, and where the current row holds
// no graph. Throws Fault(Subscript) where the group reaches to the last of the 100 entries of the
// table.
void PeakSep(Program& program, int win_no);

}  // namespace dorvane
