// A page with ten curves of 8192 channels, as a PDF document and as a picture; bytes stand in the
// counter.
#include <benchmark/benchmark.h>

#include <memory>
#include <random>

#include "batch/BatchPorts.h"
#include "program/View.h"
#include "program/WindowPage.h"
#include "qt/surface/Picture.h"
#include "support/FileLayer.h"

namespace dorvane {
namespace {

constexpr PictureSize kA4Landscape{1123, 794, 1};
constexpr int kMarginPx = 57;

// Fonts need an application; it lives as long as the program.
struct OneApplication {
  char name[6] = "bench";
  char* argv[2] = {name, nullptr};
  int argc = 1;
  GuiSession session{argc, argv};
};

// Peaks upon a noisy background, as measured counts are.
void AddGraph(Program& program, int row) {
  const auto data_no = GetGraphSpace(program.List(), -1);
  ChannelBlock& block = program.workspace.Channels[data_no];
  block.Count = kMaxChannels;
  std::mt19937 random(static_cast<unsigned>(row));
  for (int i = 0; i < kMaxChannels; ++i) {
    const int peak = i % 500 < 12 ? 4000 : 0;
    block.Counts[i] = 200 * (row + 1) + peak + static_cast<int>(random() % 60);
  }
  SetGraph(program.List(), 0, row, data_no, "g" + std::to_string(row) + ".npd");
}

struct TenCurves {
  TenCurves() {
    SetStartValues(program);
    for (int row = 0; row < kRows; ++row) AddGraph(program, row);
    program.workspace.MaxCh = kMaxChannels;
    SetSpanCh(program, kMaxChannels);
    SetYHeight(program, 0, 8000, true);
  }
  ByteVector Document() {
    const WindowSheet sheet = *CurrentSheet(program);
    return RenderDocument(kA4Landscape, kMarginPx, [&](Page& page, int) {
      DrawWindowSheet(program, sheet, page);
      return false;
    });
  }
  ByteVector Picture(PictureFormat format) {
    return RenderPicture(format, {605, 378, 300.0 / 96},
                         [&](Page& page) { DrawWindowPicture(program, 0, page); });
  }

  OneApplication application;
  BatchPorts ports;
  SystemFileLayer files;
  std::unique_ptr<Program> holder = std::make_unique<Program>(ports.Join(files), "");
  Program& program = *holder;
};

TenCurves& Curves() {
  static TenCurves curves;
  return curves;
}

void PrintToPdf(benchmark::State& state) {
  std::size_t bytes = 0;
  for (auto _ : state) bytes = Curves().Document().size();
  state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(PrintToPdf)->Unit(benchmark::kMillisecond);

void SavePicture(benchmark::State& state) {
  std::size_t bytes = 0;
  for (auto _ : state) {
    bytes = Curves().Picture(static_cast<PictureFormat>(state.range(0))).size();
  }
  state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(SavePicture)
    ->Arg(static_cast<int>(PictureFormat::Png))
    ->Arg(static_cast<int>(PictureFormat::Svg))
    ->Arg(static_cast<int>(PictureFormat::Pdf))
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace dorvane
