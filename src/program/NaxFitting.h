// The whole-spectrum fit of the Nax family: the scan of a spectrum, its peak table and the curve
// "Fit".
#pragma once

#include <span>

#include "fitting/NaxPeak.h"
#include "program/Program.h"

namespace dorvane {

// NaxAllFit: scans a spectrum of the list, channels 1..4096 of it, by the settings PeakWidthCh and
// BgCoef. The peaks found replace those of its table, FitBack is written anew, and the curve "Fit"
// is made. No peak found is told by the box "NO PEAKS ARE FOUND", more peaks than the table holds
// and a scan that a long group has ended early by a line in the log. Stopped by the user, it leaves
// all tables as they were, with the box "Failed to fit". A spectrum without a row in the list:
// nothing. Throws Fault(Overflow) for a PeakWidthCh that is no 16-bit number, and
// Fault(DivisionByZero) where a negative BgCoef takes a straight line for a peak; the tables are
// then as they were.
void NaxFitting(Program& program, int win_no, int data_no);

// Adds the results of a scan to the peak table of a row's spectrum, writes the background under
// them to FitBack, where it has these channels, and makes the curve "Fit". Nothing for no results,
// a first one at channel number 0, and more than 100.
void NaxScanStore(Program& program, int win_no, int grp_no, std::span<const NaxPeak> peaks);

}  // namespace dorvane
