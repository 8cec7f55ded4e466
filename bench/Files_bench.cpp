// Reading and writing spectrum files of 4096 channels through the system's file layer.
#include <benchmark/benchmark.h>

#include "files/FileDorvane.h"
#include "files/FileNPD.h"
#include "files/Samples.h"
#include "support/TemporaryFolder.h"

namespace dorvane {
namespace {

constexpr int kChannels = 4096;

class SilentDialogs : public Dialogs {
 public:
  void Message(std::string_view) override {}
  void CaptionedMessage(std::string_view, std::string_view) override {}
  bool AskYesNo(const Question&) override { return true; }
  std::optional<FilesChoice> ChooseFilesToOpen(const FileRequest&) override { return {}; }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override { return {}; }
  std::optional<Color> ChooseColor(Color) override { return {}; }
};

// Counts as a measured spectrum has them, up to four digits.
ChannelBlock Spectrum() {
  ChannelBlock block;
  block.Count = kChannels;
  for (int i = 0; i < kChannels; ++i) block.Counts[i] = 40 + (i * 7919) % 5000;
  return block;
}

struct Bench {
  TemporaryFolder folder;
  SystemFileLayer system;
  SilentDialogs dialogs;
  std::int16_t last_data_type = 0;
  FileContext context{system, dialogs, last_data_type};
  ChannelBlock block = Spectrum();
  SpectrumRec record = SampleRecord();
};

void ReadNpd(benchmark::State& state) {
  Bench bench;
  const std::string path = bench.folder.Path("a.npd");
  WriteNpdFile(bench.context, path, bench.block, bench.record);
  for (auto _ : state) {
    if (ReadNpdFile(bench.context, path, bench.block, bench.record) != kTrue) {
      state.SkipWithError("not read");
    }
  }
}
BENCHMARK(ReadNpd)->Unit(benchmark::kMicrosecond);

void ReadXbmFile(benchmark::State& state) {
  Bench bench;
  const std::string path = bench.folder.Path("a.xbm");
  WriteXbm(bench.context, path, bench.block, bench.record);
  for (auto _ : state) {
    if (ReadXbm(bench.context, path, bench.block, bench.record) != kTrue) {
      state.SkipWithError("not read");
    }
  }
}
BENCHMARK(ReadXbmFile)->Unit(benchmark::kMicrosecond);

void BuildNpd(benchmark::State& state) {
  const Bench bench;
  for (auto _ : state) benchmark::DoNotOptimize(NpdImage(bench.block, bench.record));
}
BENCHMARK(BuildNpd)->Unit(benchmark::kMicrosecond);

void BuildXbm(benchmark::State& state) {
  const Bench bench;
  for (auto _ : state) benchmark::DoNotOptimize(XbmImage(bench.block, bench.record));
}
BENCHMARK(BuildXbm)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace dorvane
