// Speed of the peak fit, started as the driver of one peak starts it.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "fitting/CalFitting.h"

namespace {

using dorvane::CFDQR2;
using dorvane::Coefficients;
using dorvane::FitSummary;

struct Region {
  std::vector<double> x, y;
};

// Counts of one Gaussian on a constant background, with the deviations of a fixed pseudo-random
// sequence.
Region OneGaussian(int points, double height, double background) {
  Region region;
  const double centre = (points + 1) / 2.0 + 0.3;
  std::uint32_t state = 12345;
  for (int i = 1; i <= points; ++i) {
    const double u = (i - centre) / (points / 8.0);
    const double expected = height * std::exp(-std::log(2.0) * u * u) + background;
    double deviation = -6;
    for (int k = 0; k < 12; ++k) {
      state = state * 1664525u + 1013904223u;
      deviation += state / 4294967296.0;
    }
    region.x.push_back(i);
    region.y.push_back(std::round(expected + deviation * std::sqrt(expected)));
  }
  return region;
}

// Start values: height over the left edge, centre and half width of a peak search, background 0.
void RunFit(benchmark::State& state, std::int16_t mode, int m, double height, double background) {
  const Region region = OneGaussian(static_cast<int>(state.range(0)), height, background);
  Coefficients start;
  start[1] = height;
  start[2] = std::round(region.x.back() / 2);
  start[3] = region.x.back() / 7.2;
  if (mode == 3) {
    start[1] = 0.8 * height;
    start[4] = 0.2 * height;
  }
  FitSummary summary;
  for (auto _ : state) {
    Coefficients c = start;
    summary = CFDQR2(region.x, region.y, mode, c, m);
    benchmark::DoNotOptimize(c);
  }
  state.counters["status"] = summary.status;
  state.counters["outer"] = summary.outer_rounds;
  state.counters["trials"] = summary.trials;
  state.counters["per_outer"] = benchmark::Counter(
      static_cast<double>(summary.outer_rounds),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void GaussOnBackground(benchmark::State& state) {
  RunFit(state, 1, 4, 1000, 100);
}
BENCHMARK(GaussOnBackground)->Arg(49)->Arg(200)->Unit(benchmark::kMicrosecond);

void GaussOnLowBackground(benchmark::State& state) {
  RunFit(state, 1, 4, 200, 20);
}
BENCHMARK(GaussOnLowBackground)->Arg(49)->Unit(benchmark::kMicrosecond);

void LorentzOnBackground(benchmark::State& state) {
  RunFit(state, 2, 4, 1000, 100);
}
BENCHMARK(LorentzOnBackground)->Arg(49)->Unit(benchmark::kMicrosecond);

void MixOnBackground(benchmark::State& state) {
  RunFit(state, 3, 5, 1000, 100);
}
BENCHMARK(MixOnBackground)->Arg(49)->Unit(benchmark::kMicrosecond);

}  // namespace
