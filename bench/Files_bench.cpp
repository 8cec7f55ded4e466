// Reading and writing spectrum files of 4096 channels through the system's file layer, and many
// files of 8192 channels in bulk, also through the command "convert" with every result flushed.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "batch/CommandLine.h"
#include "files/FileDorvane.h"
#include "files/FileGenie.h"
#include "files/FileNPD.h"
#include "files/FileOrtec.h"
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
ChannelBlock Spectrum(std::int16_t channels = kChannels) {
  ChannelBlock block;
  block.Count = channels;
  for (int i = 0; i < channels; ++i) block.Counts[i] = 40 + (i * 7919) % 5000;
  return block;
}

ByteVector ChnImage(const ChannelBlock& block) {
  ByteWriter image;
  image.PadTo(30);
  image.Int16(block.Count);
  image.Int32s(block.Used());
  image.PadTo(image.Bytes().size() + 12);
  return image.Take();
}

ByteVector CnfImage(const ChannelBlock& block) {
  constexpr char kPlainLayout = '\xA4';
  ByteWriter image;
  image.PadTo(11);
  image.Text({&kPlainLayout, 1});
  image.PadTo(16944);
  image.Text("run 12");
  image.PadTo(17622);
  image.Text("12.5 25");
  image.PadTo(17774);
  image.Text("6.5116");
  image.PadTo(17966);
  image.Text("0.0226609, 0.0647732");
  image.PadTo(25600);
  image.Int32s(block.Used());
  return image.Take();
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

using Reader = std::int16_t (*)(FileContext&, const std::string& path, ChannelBlock&, SpectrumRec&);

// Reads one file over and over.
void ReadImage(benchmark::State& state, Reader read, const ByteVector& image) {
  Bench bench;
  const std::string path = bench.folder.Path("a");
  bench.folder.Put("a", AsText(image));
  for (auto _ : state) {
    if (read(bench.context, path, bench.block, bench.record) != kTrue) {
      state.SkipWithError("not read");
    }
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(image.size()));
}
BENCHMARK_CAPTURE(ReadImage, rpt, ReadRptFile, RptImage(Spectrum(), SampleRecord()))
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ReadImage, chn, ReadChnFile, ChnImage(Spectrum()))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ReadImage, cnf, ReadCnfFile, CnfImage(Spectrum()))->Unit(benchmark::kMicrosecond);

// Many files one after the other.
void ReadManyFiles(benchmark::State& state, Reader read, const ByteVector& image) {
  constexpr int kFiles = 500;
  Bench bench;
  std::vector<std::string> paths;
  for (int i = 0; i < kFiles; ++i) {
    const std::string name = "a" + std::to_string(i);
    bench.folder.Put(name, AsText(image));
    paths.push_back(bench.folder.Path(name));
  }
  for (auto _ : state) {
    for (const std::string& path : paths) {
      if (read(bench.context, path, bench.block, bench.record) != kTrue) {
        state.SkipWithError("not read");
      }
    }
  }
  state.SetBytesProcessed(state.iterations() * kFiles * static_cast<std::int64_t>(image.size()));
}
BENCHMARK_CAPTURE(ReadManyFiles, xbm, ReadXbm, XbmImage(Spectrum(kMaxChannels), SampleRecord()))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadManyFiles, chn, ReadChnFile, ChnImage(Spectrum(kMaxChannels)))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadManyFiles, cnf, ReadCnfFile, CnfImage(Spectrum()))
    ->Unit(benchmark::kMillisecond);

// By the wall clock: most of it is the wait for the disk.
void ConvertManyFiles(benchmark::State& state) {
  constexpr int kFiles = 1000;
  const TemporaryFolder folder;
  const ByteVector image = XbmImage(Spectrum(kMaxChannels), SampleRecord());
  std::vector<std::string> words{"dorvane-batch", "convert",         "--to", "xba", "--quiet",
                                 "--out",         folder.Path("out")};
  for (int i = 0; i < kFiles; ++i) {
    const std::string name = "a" + std::to_string(i) + ".xbm";
    folder.Put(name, AsText(image));
    words.push_back(folder.Path(name));
  }
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  for (auto _ : state) {
    std::ostringstream out, err;
    if (RunBatch(static_cast<int>(words.size()), argv.data(), out, err) != 0) {
      state.SkipWithError(err.str().c_str());
    }
    state.PauseTiming();
    std::filesystem::remove_all(folder.Path("out"));
    state.ResumeTiming();
  }
  state.SetBytesProcessed(state.iterations() * kFiles * static_cast<std::int64_t>(image.size()));
}
BENCHMARK(ConvertManyFiles)->Unit(benchmark::kMillisecond)->UseRealTime();

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
