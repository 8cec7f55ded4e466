// What the mouse does to a graph: cursor, edges of the area cursor, and the range mark of an
// expansion.
#pragma once

#include "program/Program.h"

namespace dorvane {

enum class MouseTarget { Cursor, AreaEdge, RangeMark };

// What the pointer would take at a channel of a window; `reach` is how near an edge has to be, in
// channels.
MouseTarget TargetAt(const Program& program, int win_no, double channel, double reach);

// A drag from the press of the button to its release.
struct GraphDrag {
  MouseTarget target = MouseTarget::Cursor;
  std::int16_t anchor = 0;  // of an area edge: the other end
  double grip = 0;          // of the range mark: channels from its start to the pointer
};

// The button goes down: the window becomes active and the cursor jumps to the channel. With the
// area cursor on, an edge within reach is taken; where there is none a drag marks a new area, and a
// click alone keeps the old one. In Expand mode the range mark in window 0 is taken.
GraphDrag BeginDrag(Program& program, int win_no, double channel, double reach);

// The pointer is at a channel, which may lie outside of the window.
void DragTo(Program& program, const GraphDrag& drag, double channel);

// timCursor: the pointer is held past an edge; the view scrolls by ten channels, -1 to the left, 1
// to the right.
void ScrollDrag(Program& program, int direction);

}  // namespace dorvane
