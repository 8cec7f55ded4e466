// The styles of the two graph windows: line-up, pile-up, and window 1 as an expansion of window 0.
#pragma once

#include "program/Program.h"

namespace dorvane {

// ckbExpand. On: window 1 shows the curves of window 0 in the range StartCh, SpanCh of its own,
// window 0 shows all channels with that range marked, and "PileUp" goes off. Off: window 1 gets its
// own curves back.
void ckbExpand_Click(Program& program, bool on);

// chkWinStyle. On: all graphs are drawn in window 0, and window 1 becomes its expansion; the first
// row from 1 on that holds a graph is selected in window 1, and where there is none the selection
// stays. Off: line-up.
void chkWinStyle_Click(Program& program, bool on);

// chkFilePile: whether a window shows cursor and height of its graphs. Nothing in Expand mode,
// where the style decides.
void chkFilePile_Click(Program& program, int win_no, bool on);

// "Expand" and mnuWinType(0..1) as commands.
void ToggleExpand(Program& program);
void LineUpGraphs(Program& program);
void PileUpGraphs(Program& program);

}  // namespace dorvane
