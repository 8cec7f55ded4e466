// The regions of interest: one table for all spectra, ascending by start channel, and the range
// that the user marks with the area cursor.
//
// Channels are indices from 0. What reads counts stops at the last stored channel, wherever a
// region ends; a region may outlive its spectrum, and then sums what the channels hold.
#pragma once

#include <cstdint>
#include <optional>

#include "workspace/GraphList.h"
#include "workspace/RoiRec.h"

namespace dorvane {

constexpr int kAnySpectrum = -1;

struct RoiRange {
  std::int16_t start = 0;
  std::int16_t end = 0;
  Color color = 0;

  friend bool operator==(const RoiRange&, const RoiRange&) = default;
};

// Regions inside a range of channels.
struct RoisInRange {
  int count = 0;
  int first = -1;  // index of the first of them
};

// A marked range of channel indices.
struct AreaRegion {
  std::int16_t start = kNoEnd;  // not above `end`
  std::int16_t end = kNoEnd;
  bool valid = false;  // both ends were set and differ; otherwise both are -1
};

// Marks the range and enters it behind all regions that do not start later. Returns its index; -1,
// and nothing happens, when the table holds ten regions or the DataNo is none of 0..13.
std::int16_t RoiAdd(const GraphList& list, int win_no, int data_no, int start, int end,
                    Color color);

// Another range and colour for a region; its place stays, so the table can lose its order. 0, or -1
// for an index outside of the table.
std::int16_t RoiChange(const GraphList& list, int win_no, int index, int start, int end,
                       Color color);

// Nothing for an index outside of the table.
std::optional<RoiRange> RoiGet(const Workspace& workspace, int index);

// Removes a region and its mark. 0, or -1 for an index outside of the table.
std::int16_t RoiDelete(const GraphList& list, int win_no, int index);

// The first region of a spectrum, or of any (kAnySpectrum), with the channel between its ends; -1
// when there is none. A channel on an end is not in the region.
std::int16_t RoiFind(const Workspace& workspace, int data_no, int channel);

// The regions of a spectrum, or of any, that lie wholly in from..to, both included.
RoisInRange RoiCountIn(const Workspace& workspace, int data_no, int from, int to);

// Fills Total, the sum of the counts, PeakVal, the highest of them, and PeakCh, the lowest channel
// that has it. Without a count above 0, PeakVal and PeakCh are 0. An index outside of the table:
// nothing.
void RoiCalc(Workspace& workspace, int index);

// The region to which the cursor goes, of whatever spectrum: the first in that direction whose peak
// the cursor hasn't passed, one further in the table when it stands on that peak. -1 when there is
// none. Direction 0 left, 1 right.
std::int16_t RoiJumpTarget(const Workspace& workspace, int cursor_channel, int direction);

// Marks all regions of the spectra in the list anew.
void RoiDrawAll(const GraphList& list);

// Empties the table and removes the marks.
void RoiClear(const GraphList& list);

// The range of the area cursor, looked at: the stored ends stay.
AreaRegion MarkedArea(const ViewState& view);

// The range of the area cursor, taken. The stored ends are cleared at every call, whatever is
// found: a command asks once.
AreaRegion GetRegions(ViewState& view);

}  // namespace dorvane
