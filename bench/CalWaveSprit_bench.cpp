#include "fitting/CalWaveSprit.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>

namespace dorvane {
namespace {

class NoDialogs : public Dialogs {
 public:
  void Message(std::string_view) override {}
  void CaptionedMessage(std::string_view, std::string_view) override {}
  bool AskYesNo(const Question&) override { return false; }
  std::optional<FilesChoice> ChooseFilesToOpen(const FileRequest&) override { return {}; }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override { return {}; }
  std::optional<Color> ChooseColor(Color) override { return {}; }
};

class NoLog : public LogSink {
 public:
  void PutLog(std::string_view) override {}
};

// Peaks of 2000 counts every 150 channels on a falling background, with counting noise.
std::vector<std::int32_t> Measured() {
  std::vector<std::int32_t> counts;
  std::mt19937 random(1);
  for (int i = 0; i < 4096; ++i) {
    const double u = (i % 150 - 75) / 6.0;
    const double mean = 1000 * std::exp(-i / 2000.0) + 2000 * std::exp(-0.7 * u * u);
    counts.push_back(std::poisson_distribution<std::int32_t>(mean)(random));
  }
  return counts;
}

void Search(benchmark::State& state) {
  const std::vector<std::int32_t> counts = Measured();
  NoDialogs dialogs;
  for (auto _ : state) {
    benchmark::DoNotOptimize(PeakSearch(counts, 0, 4096, 10, kGauss, dialogs));
  }
}
BENCHMARK(Search)->Unit(benchmark::kMicrosecond);

// Two overlapping peaks over 80 channels, some steps to the limit.
void Split(benchmark::State& state) {
  std::vector<std::int32_t> counts;
  for (int i = 0; i < 80; ++i) {
    const double left = (i - 30) / 6.0;
    const double right = (i - 42) / 5.0;
    counts.push_back(static_cast<std::int32_t>(1e6 * std::exp(-0.693 * left * left) +
                                               6e5 * std::exp(-0.693 * right * right)));
  }
  std::vector<PeakRec> start(2);
  start[0].Height = 9e5;
  start[0].Center = 31;
  start[1].Height = 6.5e5;
  start[1].Center = 41;
  start[0].HalfWidth = start[1].HalfWidth = 5.5;
  NoDialogs dialogs;
  NoLog log;
  for (auto _ : state) {
    std::vector<PeakRec> peaks = start;
    WaveSplit(counts, 0, 80, peaks, dialogs, log);
    benchmark::DoNotOptimize(peaks.data());
  }
}
BENCHMARK(Split)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace dorvane
