// The Nax fit of a channel region of a spectrum, with peaks that the user has stated by hand.
#pragma once

#include <cstdint>
#include <span>

#include "fitting/NaxFit.h"
#include "program/Program.h"

namespace dorvane {

// Fits a region of a spectrum of the list, as told by COND and DampedLsq, adds the peaks to its
// table, writes FitBack anew, and makes the graph "Fit". Channels 1..4096 can be fitted.
//
// 0 when the peaks have been stored, else -1 after the box "Error in Function COND" for a position
// outside of the region, "Failed to fit" for a region that cannot be fitted and for a fit that the
// user has stopped, or "Can not fit" for a fault. Up to a fault in NaxFitStore the peak table is as
// it was; a stopped fit leaves FitBack, too. A spectrum without a row in the list: -1 and nothing.
std::int16_t NaxManualFit(Program& program, int win_no, int data_no, const ManualFitList& list);

// Adds the peaks to the table of the spectrum in row grp_no, with the background under them in
// FitBack, settles the borders of the whole table, and makes the graph "Fit". Nothing where the
// first position is 0, and for no peak or more than 100.
//
// Faults that pass, with the peaks before it stored: Subscript for a peak that PeakInsert refuses
// and for a background outside of FitBack, Overflow for a background that is no 32-bit number, and
// those of PeakFixBorders.
void NaxFitStore(Program& program, int win_no, int grp_no, std::span<const NaxPeak> peaks);

}  // namespace dorvane
