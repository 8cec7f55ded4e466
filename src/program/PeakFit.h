// The fit of the Express family: peaks found over a region, fitted one by one, and turned back into
// the curve "Fit".
#pragma once

#include <cstdint>
#include <string>

#include "fitting/LineShapes.h"
#include "processing/RoiOpe.h"
#include "program/Program.h"

namespace dorvane {

// What FitOnePeak tells beside the record that it has overwritten.
struct PeakFitResult {
  std::int16_t status = -1;     // of CFDQR2; -1 when no fit ran
  bool accepted = false;        // height >= 0, width > 0, height at most three times its start
  std::string text;             // coefficient errors, or the engine's message
  Coefficients standard_error;  // zeros where the fit did not converge
};

// Fits peak `index` of a spectrum over its region with `count` coefficients. The record is
// overwritten whatever the status. A type outside 0..3 shows "Bad Function Type!" and leaves the
// peak; an invalid index does nothing, and neither does a region without a stored channel: the peak
// is not accepted then. The faults of the engine pass.
PeakFitResult FitOnePeak(Program& program, int data_no, int index, std::int16_t type,
                         std::int16_t count);

// Adds the shapes of fitted peaks first..last of a spectrum to the counts of another. first = -1
// starts from zero counts and takes all peaks. Backgrounds are not added.
void CalcFitSpectrum(Workspace& workspace, int source, int destination, int first, int last);

// The end of every fit of a spectrum: its peak table becomes the graph "Fit", in row 0 if a fit is
// there, else in a new row; nothing where there is no room for one (a message has been shown). It
// is shown in the active window, or in Expand mode in the first one. The current row stays on its
// graph.
void MakeFitGraph(Program& program, int source);

// mnuFitting: fits the peaks of the area cursor, found first where it holds none, or the one peak
// at the cursor; then makes the graph "Fit". Peaks that are not accepted go, with the message "<n>
// Peaks Cuted". Stopped by the user, it leaves table and marks as they were. This and the commands
// below end quietly where the current row holds no graph.
void FitPeak(Program& program, int win_no);

// Finds peaks in a range and enters them; a valid area loses its old peaks first.
void InsertPeaks(Program& program, int win_no, int grp_no, const AreaRegion& area);

// "MkIns": over the area cursor, or about the cursor. "All" and mnuPeakAllIns: over the whole
// spectrum.
void InsertPeaksAtCursor(Program& program);
void InsertAllPeaks(Program& program);

// Removes the peaks of the area cursor, or the peak at the cursor, and calculates the curve of row
// 0 anew.
void DeletePeaks(Program& program);
// "MkDel": the same after a question.
void AskAndDeletePeaks(Program& program);

}  // namespace dorvane
