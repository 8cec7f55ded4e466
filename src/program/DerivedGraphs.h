// The commands that make a further graph of the current one: smoothing, background and background
// removal.
#pragma once

#include "program/Program.h"

namespace dorvane {

// Where a derived curve goes: its spectrum and its row; data_no -1 when there was no room (a
// message has been shown).
struct Destination {
  std::int16_t data_no = -1;
  std::int16_t row = 0;
};

// Both end quietly where rows are in use but the current one holds no graph, as after a failed
// read.

// mnuSmooth: the graph "Smooth", which becomes the current one. Smoothing a smoothed spectrum
// replaces row 0.
void SmoothGraph(Program& program);

// mnuBackGround: the graphs "BackGraund" and "BackRemv"; the current graph stays. Earlier results
// that have not been fitted are replaced. Faults (Subscript) where the last grid channel lies past
// channel 8191.
void BackGroundGraph(Program& program);

// Row 0 if `reuse`, else a new row 0 with a spectrum of its own.
Destination HeadDestination(const GraphList& list, bool reuse);

// Whether a row holds a spectrum with all bits of `set` and none of `clear` in its Flags.
bool RowHasFlags(const Workspace& workspace, int grp_no, std::int16_t set, std::int16_t clear);

// Whether the counts of a spectrum scatter as counted ones: as measured, or smoothed over less than
// a peak, and not those of a background, of what is left above one, or of a fit.
bool ScattersAsCounted(const Workspace& workspace, int data_no);

// Shows the row in its window's selector and refreshes picture and read-outs.
void ShowRow(Program& program, int grp_no);

}  // namespace dorvane
