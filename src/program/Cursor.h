// The channel cursor and the area cursor.
#pragma once

#include <string_view>

#include "processing/RoiOpe.h"
#include "program/Program.h"

namespace dorvane {

// "+" and "-" move by one channel, "+20" or "-5" by that many, any other number goes there;
// 0..MaxCh - 1, but a plain "+" up to MaxCh. What is no number moves nothing.
void spnCursor_SpinUpDown(Program& program, std::string_view text);

// Sets the cursor and follows with the view.
void CsrX_Change(Program& program, int channel);

// The area cursor of the whole spectrum: channels 0..MaxCh.
void SetFullRange(Program& program);

// "AreaCursor": switches the area cursor on; off, the fit goes over the whole spectrum again.
void ToggleAreaCursor(Program& program);

// Ends of the area cursor in any order; equal ends count as no area.
void SetArea(Program& program, int start, int end);
// The range of the area cursor, taken by a command: it is cleared, also on the screen.
AreaRegion TakeArea(Program& program);

// Goes to the next peak of the current graph: direction 0 left, 1 right. With the area cursor on,
// the area becomes Center +- 2*HalfWidth of the peak under the cursor, within 0..MaxCh.
void PeakJump(Program& program, int direction);

// The cursor jumps to the peak of the current graph whose centre is nearest to it, the left one of
// two as near. The centre, a channel index with its fraction; -1, and the cursor stays, where the
// graph has no peak.
double CsrChannel(Program& program);

}  // namespace dorvane
