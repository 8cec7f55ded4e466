// The commands on regions of interest: bounds at the cursor, add, delete, and the jump from peak to
// peak.
//
// They work on the current graph and do nothing where the current row holds none.
#pragma once

#include "program/Program.h"

namespace dorvane {

// mnuRoiStart and mnuRoiEnd: one end of the next region, in any order, at the cursor. While the
// area cursor is on, two ends that differ mark the area, as a drag of the mouse does, and are
// cleared.
void SetRoiStart(Program& program);
void SetRoiEnd(Program& program);

// Adds a region in the colour of the current graph: over the range of the area cursor while that is
// on, otherwise, or without two ends that differ, between SetRoiStart and SetRoiEnd. The ends are
// cleared once used. No range or a full table: nothing.
void AddRoi(Program& program);

// Deletes the first region of the current graph that has the cursor between its ends; none:
// nothing.
void DeleteRoi(Program& program);

// Goes to the next region, of whatever graph: the range is scrolled so that the region is in view
// in both windows, from its start where it is wider than they are, and the cursor stands on its
// highest channel. Direction 0 left, 1 right. No region on that side: nothing.
void RoiJump(Program& program, int direction);
void RoiJumpLeft(Program& program);
void RoiJumpRight(Program& program);

}  // namespace dorvane
