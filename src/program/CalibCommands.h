// What the calibration dialog asks of the main form: fits taken away, spectra smoothed and freed
// from their background, peaks fitted and entered.
//
// The operations with a result answer -1 when done and 0 when there was nothing to work on; faults
// of the commands that they run pass.
#pragma once

#include <cstdint>
#include <functional>

#include "program/Program.h"

namespace dorvane {

// "Del Fit": removes the peaks of the area cursor, or the one at the cursor, without a question.
// Window 1 becomes the active one, and the count axis is set anew.
// KEPT: it clears as the command "Delete Peaks" does: with no fit in row 0 the graph there becomes
// one, a reference spectrum too. A click on the spectrum's name in the dialog reads it again.
std::int16_t Calib_FitDel(Program& program);

// "Smoth&BkRemove": smooths the current spectrum and removes its background, in Expand mode with
// window 1 as the active one. Rows 1 and 2, background and smoothed curve, are no longer shown; the
// other rows stay as they are. Window 1 becomes the active one. 0, and nothing is hidden, where
// there is no graph or no room for the three curves.
std::int16_t Calib_SmothBk(Program& program);

// Fits the peaks of the area cursor in the graph "BackRemv", split for a mode other than 0, and
// enters the first of them: `cmdCsrSet_Click` is the dialog's. Both ends of the area have to be
// above 0, else "Plz Set ROI" and no more.
// KEPT: no command calls it.
std::int16_t Calib_Auto(Program& program, std::int16_t mode,
                        const std::function<void()>& cmdCsrSet_Click);

// Smooths the current graph.
// KEPT: no command calls it.
void Smooting_Calib(Program& program);

}  // namespace dorvane
