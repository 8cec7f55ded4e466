#include "processing/GraphArithmetic.h"

#include <cstdint>

#include "support/Rounding.h"

namespace dorvane {
namespace {

// KEPT: a division by zero is 0 without a word: spectra have empty channels.
double Quotient(double numerator, double denominator) {
  return denominator == 0 ? 0 : numerator / denominator;
}

std::int32_t WithConstant(int op, double count, double constant) {
  switch (op) {
    case kAdd:
      return RoundToInt32(count + constant);
    case kSubtract:
      return RoundToInt32(count - constant);
    case kMultiply:
      return RoundToInt32(count * constant);
    case kDivide:
      return RoundToInt32(Quotient(count, constant));
    default:
      return 0;
  }
}

std::int32_t WithCount(int op, std::int64_t a, std::int64_t b) {
  switch (op) {
    case kAdd:
      return Narrow<std::int32_t>(a + b);
    case kSubtract:
      return Narrow<std::int32_t>(a - b);
    case kMultiply:
      return Narrow<std::int32_t>(a * b);
    case kDivide:
      return RoundToInt32(Quotient(static_cast<double>(a), static_cast<double>(b)));
    default:
      return 0;
  }
}

}  // namespace

void CalcConst(int op, const ChannelBlock& source, double constant, ChannelBlock& destination) {
  for (int i = 0; i < source.Count; ++i) {
    destination.Counts[i] = WithConstant(op, source.Counts[i], constant);
  }
  destination.Count = source.Count;
}

// KEPT: the channels of `b` behind its own count take part; they hold what an earlier calculation
// has left there.
void CalcGraphs(int op, const ChannelBlock& a, const ChannelBlock& b, ChannelBlock& destination) {
  for (int i = 0; i < a.Count; ++i) {
    destination.Counts[i] = WithCount(op, a.Counts[i], b.Counts[i]);
  }
  destination.Count = a.Count;
}

}  // namespace dorvane
