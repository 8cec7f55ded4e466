// Speed of the smoothing filter and of a calculated peak on 4096 channels.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <vector>

#include "processing/Calc.h"

namespace {

void Smooth(benchmark::State& state) {
  std::vector<std::int32_t> counts(4096);
  std::uint32_t random = 12345;
  for (auto& count : counts) {
    random = random * 1664525u + 1013904223u;
    count = static_cast<std::int32_t>(random >> 20);
  }
  const auto kind = static_cast<std::int16_t>(state.range(0));
  for (auto _ : state) {
    dorvane::SmoothData(kind, counts);
    benchmark::DoNotOptimize(counts.data());
  }
}
BENCHMARK(Smooth)->DenseRange(0, dorvane::kSmoothKinds - 1)->Unit(benchmark::kMicrosecond);

void CalculatedPeak(benchmark::State& state) {
  const std::array<double, 4> p = {800, 2000, 6, 200};
  for (auto _ : state) {
    double sum = 0;
    int error = 0;
    for (int i = 0; i < 4096; ++i) sum += dorvane::MixFunc(i, p, error);
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(CalculatedPeak)->Unit(benchmark::kMicrosecond);

}  // namespace
