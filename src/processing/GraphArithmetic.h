// Arithmetic on counts, channel by channel: a graph with a constant, and two graphs.
#pragma once

#include "workspace/SpectrumRec.h"

namespace dorvane {

// Operators; any other number gives 0 in every channel.
inline constexpr int kAdd = 0;
inline constexpr int kSubtract = 1;
inline constexpr int kMultiply = 2;
inline constexpr int kDivide = 3;

// Both work on the channels in use of the first operand and give the destination its count; the
// channels of the destination behind them stay. The destination may be an operand. Results are
// rounded half to even, and may be negative. Both throw Fault(Overflow) where a result has no place
// in 32 bits; the destination then holds the results of the channels in front of that one.

// source(i) op constant. A constant of 0 as divisor gives 0.
void CalcConst(int op, const ChannelBlock& source, double constant, ChannelBlock& destination);

// a(i) op b(i). A count of 0 as divisor gives 0. Where `a` has more channels than `b`, those of `b`
// count as they stand.
void CalcGraphs(int op, const ChannelBlock& a, const ChannelBlock& b, ChannelBlock& destination);

}  // namespace dorvane
