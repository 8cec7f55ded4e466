// The peak table of a spectrum: peaks are inserted, found, deleted and walked, and their borders
// and areas settled.
#pragma once

#include <cstdint>
#include <optional>

#include "workspace/GraphList.h"

namespace dorvane {

constexpr int kNoPeakIndex = 65535;

// The region of a peak, channel indices.
struct PeakRegion {
  std::int16_t start = 0;
  std::int16_t end = 0;
};

// Peaks inside a range of channels.
struct PeaksInRange {
  int count = 0;
  int first = kNoPeakIndex;  // index of the first of them
};

enum class JumpDirection { Left = 0, Right = 1 };

// Marks the peak and enters it behind all peaks whose centre is not greater. Returns its index; -1,
// and nothing happens, when the table holds 100 peaks, the centre is 0 or the window number is
// negative.
std::int16_t PeakInsert(const GraphList& list, int win_no, int grp_no, const PeakRec& peak);

// Removes a peak and its mark. 0, or -1 for an index outside of the table.
std::int16_t PeakDelete(const GraphList& list, int win_no, int grp_no, int index);

// Empties the table of the graph's spectrum and removes all peak lines of the window.
void PeakClear(const GraphList& list, int win_no, int grp_no);

// Nothing for an index outside of the table.
std::optional<PeakRegion> PeakGetRegion(const Workspace& workspace, int data_no, int index);

// The first peak whose centre is less than one half width away from the channel; -1 when there is
// none.
std::int16_t PeakFindAt(const Workspace& workspace, int data_no, double channel);

// The peaks whose centre lies in from..to, both included.
PeaksInRange PeakCountIn(const Workspace& workspace, int data_no, double from, double to);

// The peak to which the cursor goes: the nearest on that side, one further when the cursor stands
// on a peak. -1 when there is none. Throws Fault(Overflow) for a centre that is no 16-bit number.
std::int16_t PeakJumpTarget(const Workspace& workspace, int data_no, int cursor_channel,
                            JumpDirection direction);

// Unmarks the peaks first..last; where the regions of two neighbours overlap, both end at the
// valley between their centres. Throws Fault(Subscript) for an index outside 0..99 and where the
// search for the valley leaves the channels 0..8191, as it does when the left centre rounds to 0 or
// less; earlier pairs are then settled already.
void PeakFixBorders(const GraphList& list, int win_no, int grp_no, int first, int last);

// The same for marked peaks, which have their marks again afterwards. An empty range: nothing.
void PeakFixMarkedBorders(const GraphList& list, int win_no, int grp_no, int first, int last);

// Fills Amplitude: the peak's shape, without background, summed over all channels of the spectrum
// in ascending order. Channels where the shape faults (half width 0) count as 0. Throws
// Fault(Subscript) for an index outside 0..99.
void PeakAreaCalc(Workspace& workspace, int data_no, int index);

}  // namespace dorvane
