// Moves a graph to the other window.
#pragma once

#include "program/Program.h"

namespace dorvane {

// The window shows the graph, which becomes its current one; the window that has lost it selects
// another of its own. A graph that is there already stays.
void MoveGraph(Program& program, int grp_no, int win_no);

}  // namespace dorvane
