#include "fitting/NaxScan.h"

#include <benchmark/benchmark.h>

#include <cmath>

#include "support/RandomCounts.h"

namespace dorvane {
namespace {

class NoProgress : public Progress {
 public:
  void Report(int, int) override {}
  bool Cancelled() override { return false; }
};

// 4096 channels with 20 lines of 3000 counts and FWHM 10 on a background of 200, with counting
// noise; in groups of so many lines 24 channels apart.
std::vector<std::int32_t> Measured(int lines_per_group) {
  std::vector<std::int32_t> counts;
  RandomCounts random(1);
  const int groups = 20 / lines_per_group;
  for (int channel = 1; channel <= 4096; ++channel) {
    double mean = 200;
    for (int g = 0; g < groups; ++g) {
      for (int k = 0; k < lines_per_group; ++k) {
        const double centre = 4096 * (g + 0.5) / groups + 24 * (k - 0.5 * (lines_per_group - 1));
        const double u = (channel - centre) / 5;
        mean += 3000 * std::exp2(-u * u);
      }
    }
    counts.push_back(random.Poisson(mean));
  }
  return counts;
}

// Found lines are told beside the time.
void WholeSpectrum(benchmark::State& state) {
  const std::vector<std::int32_t> counts = Measured(static_cast<int>(state.range(0)));
  const ScanControl control = ScanSetup(20, 5, 4096);
  NoProgress progress;
  std::size_t found = 0;
  for (auto _ : state) {
    found = ScanSpectrum(counts, control, progress).peaks.size();
    benchmark::DoNotOptimize(found);
  }
  state.counters["found"] = static_cast<double>(found);
}
BENCHMARK(WholeSpectrum)->ArgName("lines a group")->Arg(1)->Arg(5)->Unit(benchmark::kMillisecond);

// One group of so many lines 24 channels apart.
void OneGroup(benchmark::State& state) {
  const int lines = static_cast<int>(state.range(0));
  std::vector<double> x;
  std::vector<double> y;
  std::vector<ScanPeak> peaks;
  RandomCounts random(1);
  for (int k = 0; k < lines; ++k) peaks.push_back({40.0 + 24 * k, 3150, 9, 40.0 + 24 * k});
  for (int channel = 1; channel <= 56 + 24 * lines; ++channel) {
    double mean = 200;
    for (const ScanPeak& peak : peaks) {
      mean += 3000 * std::exp2(-std::pow((channel - peak.position - 0.3) / 5, 2));
    }
    x.push_back(channel);
    y.push_back(random.Poisson(mean));
  }
  const ScanControl control = ScanSetup(20, 5, 4096);
  const auto work = std::make_unique<GroupFitWork>();
  int left = 0;
  for (auto _ : state) {
    left = GroupFit(x, y, peaks, control, *work).count;
    benchmark::DoNotOptimize(left);
  }
  state.counters["fitted"] = left;
}
BENCHMARK(OneGroup)->ArgName("lines")->Arg(1)->Arg(5)->Arg(9)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace dorvane
