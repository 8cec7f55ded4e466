#include "fitting/NaxFit.h"

#include <benchmark/benchmark.h>

#include <cmath>

#include "support/RandomCounts.h"

namespace dorvane {
namespace {

class NoLog : public LogSink {
 public:
  void PutLog(std::string_view) override {}
};

class NoProgress : public Progress {
 public:
  void Report(int, int) override {}
  bool Cancelled() override { return false; }
};

// Peaks of 3000 counts and a FWHM of 8 channels in equal distances over 300 channels from channel
// 100 on, on a background of 200, with counting noise.
std::vector<std::int32_t> Measured(int peaks) {
  std::vector<std::int32_t> counts;
  RandomCounts random(1);
  for (int channel = 1; channel <= 500; ++channel) {
    double mean = 200;
    for (int k = 0; k < peaks; ++k) {
      const double u = (channel - 100 - 300 * (k + 0.5) / peaks) / 4;
      mean += 3000 * std::exp2(-u * u);
    }
    counts.push_back(random.Poisson(mean));
  }
  return counts;
}

ManualFitList ListOf(int peaks) {
  ManualFitList list;
  list.StartCh = 100;
  list.EndCh = 399;
  list.PeakNum = static_cast<std::int16_t>(peaks);
  for (int k = 0; k < peaks; ++k) {
    list.CenterCh[k] = static_cast<std::int16_t>(101 + 300 * (k + 0.5) / peaks);
    list.MaxCount[k] = 2800;
  }
  return list;
}

void RegionFit(benchmark::State& state) {
  const int peaks = static_cast<int>(state.range(0));
  const std::vector<std::int32_t> counts = Measured(peaks);
  const ManualFitList list = ListOf(peaks);
  NoLog log;
  NoProgress progress;
  NaxFitSummary summary;
  for (auto _ : state) {
    NaxRegion region;
    COND(counts, list, region);
    summary = DampedLsq(region, NaxLimits{}, log, progress);
    benchmark::DoNotOptimize(summary.chi);
  }
  state.counters["result"] = summary.result;
  state.counters["iterations"] = summary.iterations;
}
BENCHMARK(RegionFit)->Arg(1)->Arg(5)->Unit(benchmark::kMicrosecond);

// One evaluation of five peaks over 300 channels with its linear solve.
void Evaluation(benchmark::State& state) {
  const std::vector<std::int32_t> counts = Measured(5);
  NoLog log;
  NaxRegion region;
  COND(counts, ListOf(5), region);
  auto arrays = std::make_unique<NaxArrays>();
  NaxStep step;
  for (auto _ : state) {
    PrepLsq(region, NaxLimits{}, *arrays, step, log);
    benchmark::DoNotOptimize(step.chi);
  }
}
BENCHMARK(Evaluation)->Unit(benchmark::kMicrosecond);

// The parabola through 21 points whose inverse is there already.
void KeptInverse(benchmark::State& state) {
  auto x = std::make_unique<LsqDesign>();
  std::vector<double> y(21), b(3), errors(3);
  for (std::size_t i = 0; i < y.size(); ++i) {
    const double u = static_cast<double>(i) - 10;
    x->Row(i)[0] = 1;
    x->Row(i)[1] = u;
    x->Row(i)[2] = u * u;
    y[i] = 200 - u * u;
  }
  LsqMatrix matrix;
  Lsq(*x, y, matrix, LsqStart::Build, 1e-6, b, errors);
  for (auto _ : state) {
    benchmark::DoNotOptimize(Lsq(*x, y, matrix, LsqStart::KeepInverse, 1e-6, b, errors));
  }
}
BENCHMARK(KeptInverse)->Unit(benchmark::kNanosecond);

}  // namespace
}  // namespace dorvane
