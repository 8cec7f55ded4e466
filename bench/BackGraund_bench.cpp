#include "processing/BackGraund.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
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

// Peaks of 2000 counts every 150 channels on a falling background, with counting noise.
std::unique_ptr<ChannelBlock> Measured() {
  auto block = std::make_unique<ChannelBlock>();
  block->Count = 4096;
  std::mt19937 random(1);
  for (int i = 0; i < 4096; ++i) {
    const double u = (i % 150 - 75) / 6.0;
    const double mean = 1000 * std::exp(-i / 2000.0) + 2000 * std::exp(-0.7 * u * u);
    block->Counts[i] = std::poisson_distribution<std::int32_t>(mean)(random);
  }
  return block;
}

// Interval 20, 20 passes; the copy of the counts that the estimate works on is measured with it.
void Background(benchmark::State& state) {
  const auto measured = Measured();
  auto work = std::make_unique<ChannelBlock>();
  NoDialogs dialogs;
  for (auto _ : state) {
    *work = *measured;
    EstimateBackground(20, 20, work->Counts, work->Count, dialogs);
    benchmark::DoNotOptimize(work->Counts.data());
  }
}
BENCHMARK(Background)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace dorvane
