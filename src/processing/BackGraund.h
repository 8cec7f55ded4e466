// Estimates the slowly varying background under a spectrum by clipping peaks on a coarse grid of
// channels.
#pragma once

#include <cstdint>

#include "support/Dialogs.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {

// The counts of a spectrum with all 8192 places, used or not.
using ChannelCounts = decltype(ChannelBlock::Counts);

// Replaces the first n counts by their background. `times` passes lower each grid channel (a
// multiple of `interval`) to the mean of its two grid neighbours where it exceeds that; straight
// lines then join the grid channels. Channels from the last grid channel not above n on keep their
// counts. Every result is rounded half to even.
//
// An interval or a number of times of 0 or less: a message, and nothing changes. Throws
// Fault(Subscript) where n = 8192 is a multiple of the interval, since n itself is the last grid
// channel; the counts are then half worked.
void EstimateBackground(std::int16_t interval, std::int16_t times, ChannelCounts& counts,
                        std::int16_t n, Dialogs& dialogs);

}  // namespace dorvane
