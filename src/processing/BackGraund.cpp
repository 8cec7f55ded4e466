#include "processing/BackGraund.h"

#include <array>

#include "processing/Calc.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

// One pass in place: each step sees what the step before it clipped.
void ClipGrid(int interval, ChannelCounts& counts, int n) {
  const int last = n / interval - 2;
  for (int i = 0; i <= last; ++i) {
    const double left = counts[i * interval];
    const double right = counts[(i + 2) * interval];
    const std::int32_t mid = RoundToInt32((left + right) / 2);
    std::int32_t& count = counts[(i + 1) * interval];
    if (count > mid) count = mid;
  }
}

void JoinGrid(int interval, ChannelCounts& counts, int n) {
  const int last = n / interval - 1;
  for (int i = 0; i <= last; ++i) {
    const int first = i * interval;
    const int next = first + interval;
    const std::array<double, 2> x = {static_cast<double>(first), static_cast<double>(next)};
    const std::array<double, 2> y = {static_cast<double>(counts[first]),
                                     static_cast<double>(counts[next])};
    const LineCoef line = LineFit(x, y);
    for (int channel = first; channel < next; ++channel) {
      counts[channel] = RoundToInt32(LineFunc(channel, line));
    }
  }
}

}  // namespace

void EstimateBackground(std::int16_t interval, std::int16_t times, ChannelCounts& counts,
                        std::int16_t n, Dialogs& dialogs) {
  if (interval <= 0) {
    dialogs.Message("BackGrand Interval <= 0 !");
    return;
  }
  if (times <= 0) {
    dialogs.Message("BackGrand Times <= 0 !");
    return;
  }
  for (int pass = 0; pass < times; ++pass) ClipGrid(interval, counts, n);
  JoinGrid(interval, counts, n);
}

}  // namespace dorvane
